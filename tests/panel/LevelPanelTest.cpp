#include "PanelBench.h"

namespace {

using LevelAndOffset = OpenPanel;

TEST_F(LevelAndOffset, TheSideChangedLastGivesWay) {
    const QString sum = QStringLiteral("2 X offset + output voltage is higher then the max. possible level ");
    // entered: level, offset, and a level again, if at all; shown: both, and the hint
    const std::tuple<const char*, const char*, const char*, const char*, QString> cases[] = {
        {"1", "0.6", "", "1.00000 0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
        {"12", "-5", "", "12.00000 -4.0000", sum + u"Range3: 20.00V"},
        {"5", "4", "15", "12.00000 4.0000", sum + u"Range3: 20.00V"},
        {"5", "-4", "15", "15.00000 -2.5000", sum + u"Range3: 20.00V"},
        {"3", "4", "1", "1.00000 0.5000", QStringLiteral("Max Offset in Range2 is 500mV")},
        {"1", "0.12345", "", "1.00000 0.1230", QString()}};
    for (const auto& [level, offset, relevel, shown, hint] : cases) {
        Enter("Text4", "0");
        Enter("Text2", level);
        Get<QLabel>("Label8")->clear();
        Enter("Text4", offset);
        if (*relevel != '\0') {
            Enter("Text2", relevel);
        }
        EXPECT_EQ(Texts({"Text2", "Text4"}), QLatin1StringView(shown));
        EXPECT_EQ(Hint(), hint);
    }
}

// In Vrms the sum test can find fault with an offset that leaves room to spare.
TEST_F(LevelAndOffset, AnOffsetThatGivesWayIsNeverRaised) {
    Connect();
    line.replies[QStringLiteral("sta?")] = "OT0 RFI SW0 SIN AM0 SK0 CTM RMS\r";
    Click("vunit_1");
    for (const auto& [offset, command] : {std::pair("5", "ofs:5.0000"), {"-4.5", "ofs:-4.5000"}}) {
        Enter("Text4", "0");
        Enter("Text2", "1");
        Get<QLabel>("Label8")->clear();
        Enter("Text4", offset);
        EXPECT_TRUE(Hint().endsWith(u"Range3: 7.07V")) << offset;
        panel.tmOffset = kTrue;
        line.wire.clear();
        Click("Command4");
        EXPECT_TRUE(line.Lines().contains(QLatin1StringView(command))) << line.Lines().join(u' ').toStdString();
    }
}

// As a setting file may bring it.
TEST_F(LevelAndOffset, ALevelBeyondItsBoundLeavesNoRoomForAnOffset) {
    panel.mAmp = 25.0;
    panel.mOffset = -3.0;
    form->RefreshPanel();
    EXPECT_EQ(Texts({"Text2", "Text4"}), u"25.00000 0.0000");
}

TEST_F(LevelAndOffset, TheUnitConvertsTheLevelAndIsJudgedByTheState) {
    // The unit clicked, the level that stood there, the one that stands there then, and the hint.
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"vunit_1", "5", "3.53553", ""},
        {"vunit_1", "3.53553", "3.53553", ""},  // the unit in force
        {"vunit_0", "0.0071", "0.02000", "Min. Level: 0.0200"},
        {"vunit_1", "14", "7.07000", "Max. Level: 7.0700"}};
    for (const auto& [unit, before, after, hint] : cases) {
        Enter("Text2", before);
        Click(unit);
        EXPECT_EQ(Text("Text2"), QLatin1StringView(after));
        EXPECT_EQ(Hint(), QLatin1StringView(hint));
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
    EXPECT_TRUE(!Checked("Check1") && panel.tmOffset == kFalse);
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
