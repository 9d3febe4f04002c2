#include "PanelBench.h"

namespace {

using LevelAndOffset = OpenPanel;

TEST_F(LevelAndOffset, TheSideChangedLastGivesWay) {
    const QString sum =
        QStringLiteral("2 X offset + output voltage is higher then the max. possible level Range3: 20.00V");
    // entered: level, offset, and a level again, if at all; shown: both, and the hint
    const std::tuple<const char*, const char*, const char*, const char16_t*, QString> cases[] = {
        {"1", "0.6", "", u"1.00000 0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
        {"12", "-5", "", u"12.00000 -4.0000", sum},
        {"5", "4", "15", u"12.00000 4.0000", sum},
        {"5", "-4", "15", u"15.00000 -2.5000", sum},
        {"3", "4", "1", u"1.00000 0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
        {"1", "0.12345", "", u"1.00000 0.1230", QString()}};
    for (const auto& [level, offset, relevel, shown, hint] : cases) {
        Enter("Text4", "0");
        Enter("Text2", level);
        Get<QLabel>("Label8")->clear();
        Enter("Text4", offset);
        if (*relevel != '\0') {
            Enter("Text2", relevel);
        }
        EXPECT_EQ(Texts({"Text2", "Text4"}), shown);
        EXPECT_EQ(Hint(), hint);
    }
}

// As a setting file may bring it: the offset gives way to the level before the modulation caps that.
TEST_F(LevelAndOffset, ARebuildHoldsTheLevelAheadOfTheModulation) {
    for (const auto& [level, shown] : {std::pair(25.0, u"10.00000 0.0000"), {15.0, u"10.00000 -2.5000"}}) {
        panel.bmAmpMod = 2;
        panel.mAmp = level;
        panel.mOffset = -4.0;
        form->RefreshPanel();
        EXPECT_EQ(Texts({"Text2", "Text4"}), shown);
    }
}

TEST_F(LevelAndOffset, TheUnitConvertsTheLevelAndIsJudgedByTheState) {
    // The unit clicked, the level that stood there, the one that stands there then, and the hint.
    const std::tuple<const char*, const char*, const char16_t*, const char16_t*> cases[] = {
        {"vunit_1", "5", u"3.53553", u""},
        {"vunit_1", "3.53553", u"3.53553", u""},  // the unit in force
        {"vunit_0", "3.5", u"4.94975", u""},
        {"vunit_1", "5", u"3.53553", u""},
        {"vunit_0", "0.0071", u"0.02000", u"Min. Level: 0.0200"},
        {"vunit_1", "14", u"7.07000", u"Max. Level: 7.0700"}};
    for (const auto& [unit, before, after, hint] : cases) {
        Enter("Text2", before);
        Click(unit);
        EXPECT_EQ(Text("Text2"), after);
        EXPECT_EQ(Hint(), hint);
        EXPECT_TRUE(HasFocus("Text2"));
    }
    // As a read-back leaves it: the label follows, the options don't.
    panel.tmVPP = kTrue;
    panel.mAmp = 2.0;
    form->RefreshPanel();
    EXPECT_EQ(Get<QLabel>("Label6")->text(), u"VPP");
    EXPECT_TRUE(Checked("vunit_1"));
    Click("vunit_1");
    EXPECT_EQ(Get<QLabel>("Label6")->text(), u"RMS");
    EXPECT_EQ(Text("Text2"), u"1.41421");
}

TEST_F(LevelAndOffset, AmplitudeModulationCapsTheLevelAndRefusesAnOffset) {
    Enter("Text2", "15");
    Enter("Text4", "-1.5");
    ShowTab(1);
    Click("opmod_0");
    EXPECT_EQ(Text("Text2"), u"10.00000");
    EXPECT_EQ(Hint(), u"Am-Modulation is On. Max. Level: 10.0000");
    Click("Check1");
    EXPECT_FALSE(Checked("Check1"));
    EXPECT_EQ(panel.tmOffset, kFalse);
    EXPECT_EQ(Text("Text4"), u"-1.5000");
    EXPECT_EQ(Hint(), u"An offset voltage cannot be superimposed to an AM signal");
    Click("opmod_3");
    EXPECT_EQ(panel.mAmp, 10.0);  // the old level does not come back
    Click("Check1");
    EXPECT_EQ(panel.tmOffset, kTrue);
    Click("opmod_0");
    EXPECT_TRUE(Checked("Check1"));  // until the next refresh of the offset
    Enter("Text4", "1");
    EXPECT_FALSE(Checked("Check1"));
    panel.tmOffset = kTrue;  // as a read-back reports it
    form->RefreshPanel();
    EXPECT_EQ(panel.tmOffset, kFalse);
}

}  // namespace
