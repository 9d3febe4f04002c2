#include "PanelBench.h"

namespace {

using LevelAndOffset = PanelBench;

const QString kSum = QStringLiteral("2 X offset + output voltage is higher then the max. possible level ");

TEST_F(LevelAndOffset, TheSideChangedLastGivesWay) {
    Open();
    struct Case {
        const char* level;    // set first
        const char* offset;   // entered next
        const char* relevel;  // entered last, if at all
        const char *shownLevel, *shownOffset;
        QString hint;
    };
    const Case cases[] = {{"1", "0.6", nullptr, "1.00000", "0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
                          {"1.5", "0.4", nullptr, "1.50000", "0.2500", kSum + u"Range2: 2.00V"},
                          {"12", "-5", nullptr, "12.00000", "-4.0000", kSum + u"Range3: 20.00V"},
                          {"5", "4", "15", "12.00000", "4.0000", kSum + u"Range3: 20.00V"},
                          {"5", "-4", "15", "15.00000", "-2.5000", kSum + u"Range3: 20.00V"},
                          {"3", "4", "1", "1.00000", "0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
                          {"0.1", "0.04567", nullptr, "0.10000", "0.0457", QString()},
                          {"1", "0.12345", nullptr, "1.00000", "0.1230", QString()},
                          {"5", "1.234", nullptr, "5.00000", "1.2300", QString()}};
    for (const Case& c : cases) {
        Enter("Text4", "0");
        Enter("Text2", c.level);
        Get<QLabel>("Label8")->clear();
        Enter("Text4", c.offset);
        if (c.relevel != nullptr) {
            Enter("Text2", c.relevel);
        }
        EXPECT_EQ(Text("Text2"), QLatin1StringView(c.shownLevel)) << c.level << ' ' << c.offset;
        EXPECT_EQ(Text("Text4"), QLatin1StringView(c.shownOffset)) << c.level << ' ' << c.offset;
        EXPECT_EQ(Hint(), c.hint);
    }
}

TEST_F(LevelAndOffset, TheUnitConvertsTheLevelAndIsJudgedByTheState) {
    Open();
    Enter("Text2", "5");
    Click("vunit_1");
    EXPECT_EQ(panel.tmVPP, kFalse);
    EXPECT_EQ(Text("Text2"), u"3.53553");
    EXPECT_EQ(Get<QLabel>("Label6")->text(), u"RMS");
    EXPECT_TRUE(HasFocus("Text2"));
    Click("vunit_1");  // the unit in force
    EXPECT_EQ(Text("Text2"), u"3.53553");
    Enter("Text2", "0.0071");
    Click("vunit_0");
    EXPECT_EQ(Text("Text2"), u"0.02000");
    EXPECT_EQ(Hint(), u"Min. Level: 0.0200");
    Enter("Text2", "14");
    Click("vunit_1");
    EXPECT_EQ(Text("Text2"), u"7.07000");
    EXPECT_EQ(Hint(), u"Max. Level: 7.0700");

    // As a read-back leaves it: the label follows, the options don't.
    panel.tmVPP = kTrue;
    panel.mAmp = 2.0;
    form->RefreshPanel();
    EXPECT_EQ(Get<QLabel>("Label6")->text(), u"VPP");
    EXPECT_TRUE(Checked("vunit_1"));
    Click("vunit_1");
    EXPECT_EQ(panel.tmVPP, kFalse);
    EXPECT_EQ(Text("Text2"), u"1.41421");
}

TEST_F(LevelAndOffset, AmplitudeModulationCapsTheLevelAndRefusesAnOffset) {
    Open();
    Enter("Text2", "15");
    Enter("Text4", "-1.5");
    ShowTab(1);
    Click("opmod_0");
    EXPECT_EQ(Text("Text2"), u"10.00000");
    EXPECT_EQ(Hint(), u"Am-Modulation is On. Max. Level: 10.0000");
    EXPECT_EQ(Text("Text4"), u"-1.5000");
    Click("Check1");
    EXPECT_FALSE(Checked("Check1"));
    EXPECT_EQ(panel.tmOffset, kFalse);
    EXPECT_EQ(panel.mOffset, -1.5);
    EXPECT_EQ(Text("Text4"), u"-1.5000");
    EXPECT_EQ(Hint(), u"An offset voltage cannot be superimposed to an AM signal");
    Click("opmod_3");
    EXPECT_EQ(panel.mAmp, 10.0);  // the old level does not come back
    Click("Check1");
    EXPECT_TRUE(Checked("Check1"));
    EXPECT_EQ(panel.tmOffset, kTrue);
    Click("opmod_0");
    EXPECT_TRUE(Checked("Check1"));  // until the next refresh of the offset
    Enter("Text4", "1");
    EXPECT_FALSE(Checked("Check1"));
    EXPECT_EQ(panel.tmOffset, kFalse);
    panel.tmOffset = kTrue;  // as a read-back reports it
    form->RefreshPanel();
    EXPECT_EQ(panel.tmOffset, kFalse);
}

}  // namespace
