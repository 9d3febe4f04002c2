#include "PanelBench.h"

namespace {

using Modulation = PanelBench;

TEST_F(Modulation, EachKindStoresItselfAndOpensItsFields) {
    Open();
    ShowTab(1);
    struct Case {
        const char* option;
        int bmFMod, bmAmpMod;
        bool am, fsk, psk;
    };
    const Case cases[] = {
        {"opmod_0", 0, 2, true, false, false},
        {"opmod_1", 2, 0, false, true, false},
        {"opmod_2", 1, 0, false, false, true},
        {"opmod_3", 0, 0, false, false, false},
        {"opmod_2", 1, 0, false, false, true},
        {"opmod_1", 2, 0, false, true, false},  // the phases are closed by their frame
    };
    for (const Case& c : cases) {
        Click(c.option);
        EXPECT_EQ(panel.bmFMod, c.bmFMod);
        EXPECT_EQ(panel.bmAmpMod, c.bmAmpMod);
        for (const char* const name : {"Frame2", "Text5", "Label11", "opAmMod_0", "opAmMod_1"}) {
            EXPECT_EQ(Get(name)->isEnabled(), c.am) << name << ' ' << c.option;
        }
        for (const char* const name : {"Frame3", "Label12", "Label13", "Label16", "Label17", "Text6", "Text7"}) {
            EXPECT_EQ(Get(name)->isEnabled(), c.fsk) << name << ' ' << c.option;
        }
        for (const char* const name : {"Frame4", "Label14", "Label15", "Text8", "Text9"}) {
            EXPECT_EQ(Get(name)->isEnabled(), c.psk) << name << ' ' << c.option;
        }
    }
}

TEST_F(Modulation, AnExternalSourceSurvivesALoadButNotAClick) {
    Open();
    panel.bmAmpMod = 1;
    form->RefreshPanel();
    EXPECT_EQ(panel.bmAmpMod, 1);
    EXPECT_TRUE(Checked("opmod_0"));
    EXPECT_TRUE(Checked("opAmMod_1"));
    ShowTab(1);
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
    Open();
    ShowTab(1);
    Click("opmod_0");
    EXPECT_EQ(Text("Text5"), u" 50");
    Enter("Text5", "250");
    EXPECT_EQ(Text("Text5"), u" 100");
    EXPECT_EQ(panel.bmAmDepth, 100);
    EXPECT_EQ(desktop.beeps, 0);
    Click("opmod_2");
    Enter("Text9", "359.95");
    EXPECT_DOUBLE_EQ(panel.mPhaseb, 359.9);
    EXPECT_EQ(Hint(), QStringLiteral("Phaseange: 0° to 359.9°"));
    Click("opmod_1");
    Enter("Text7", "500000");  // kHz
    EXPECT_EQ(Get<QLabel>("Label17")->text(), u"MHz");
    EXPECT_EQ(Get<QLabel>("Label16")->text(), u"kHz");
    Click("ohFreq_0");
    Enter("Text7", "15");
    EXPECT_EQ(panel.mhFreq, 15.0);
    EXPECT_EQ(Get<QLabel>("Label17")->text(), u"Hz");
}

}  // namespace
