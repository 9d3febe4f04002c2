#include "PanelBench.h"

namespace {

using Modulation = OpenPanel;

TEST_F(Modulation, EachKindStoresItselfAndOpensItsFields) {
    // option, shift keying, amplitude modulation, what it opens, whether the phases are open within their frame
    const std::tuple<const char*, int, int, const char*, bool> cases[] = {
        {"opmod_0", 0, 2, "Text5", false}, {"opmod_1", 2, 0, "Text7", false}, {"opmod_2", 1, 0, "Text9", true},
        {"opmod_3", 0, 0, "", false},      {"opmod_2", 1, 0, "Text9", true},  {"opmod_1", 2, 0, "Text7", true}};
    ShowTab(1);
    for (const auto& [option, bmFMod, bmAmpMod, opened, open] : cases) {
        Click(option);
        EXPECT_EQ(panel.bmFMod, bmFMod);
        EXPECT_EQ(panel.bmAmpMod, bmAmpMod);
        for (const char* const field : {"Text5", "Text7", "Text9"}) {
            EXPECT_EQ(Get(field)->isEnabled(), std::string(field) == opened) << field << ' ' << option;
        }
        // The keying of the frequency leaves the phases to their frame.
        EXPECT_EQ(Get("Text9")->isEnabledTo(Get("Frame4")), open) << option;
    }
}

TEST_F(Modulation, AnExternalSourceSurvivesALoadButNotAClick) {
    ShowTab(1);
    panel.bmAmpMod = 1;
    form->RefreshPanel();
    ExpectChecked({"opmod_0", "opAmMod_1"});
    Click("opmod_3");
    Click("opmod_0");
    EXPECT_EQ(panel.bmAmpMod, 2);
    EXPECT_TRUE(Checked("opAmMod_0"));
    Click("opAmMod_1");
    EXPECT_EQ(panel.bmAmpMod, 1);
    Click("opmod_0");  // a click on the kind in force counts as well
    EXPECT_EQ(panel.bmAmpMod, 2);
}

TEST_F(Modulation, FieldsHoldTheirValues) {
    ShowTab(1);
    Click("opmod_0");
    EXPECT_EQ(Text("Text5"), u" 50");
    Enter("Text5", "2.E50");
    EXPECT_EQ(Text("Text5"), u" 100");
    Click("opmod_2");
    Enter("Text9", "359.9");
    EXPECT_EQ(Hint(), QString());
    Enter("Text9", "359.95");
    EXPECT_DOUBLE_EQ(panel.mPhaseb, 359.9);
    EXPECT_EQ(Hint(), QStringLiteral("Phaseange: 0° to 359.9°"));
    Click("opmod_1");
    Enter("Text7", "500000");  // kHz
    EXPECT_EQ(Get<QLabel>("Label17")->text(), u"MHz");
    Click("ohFreq_0");
    Enter("Text7", "15");
    EXPECT_EQ(panel.mhFreq, 15.0);
}

}  // namespace
