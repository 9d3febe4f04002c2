#include <QClipboard>

#include "PanelBench.h"

namespace {

using EntryFields = PanelBench;
using EntryFieldsInACommaLocale = CommaPanelBench;

TEST_F(EntryFields, EnterCommitsClampsAndShowsTheNormalForm) {
    Open();
    struct Case {
        const char* typed;
        double hertz;
        const char *shown, *unit;
        bool message;
    };
    const Case cases[] = {
        {"999.9999", 999999.9, "999.9999000", "kHz", false},  // the field stood at kHz
        {"15000", 15.0e6, "15.0000000000", "MHz", false},    {"15.0000001", 15.0e6, "15.0000000000", "MHz", true},
        {"0.5", 5.0e5, "500.0000000", "kHz", false},         {"1/2", 0.0001, "0.0001", "Hz", true},
        {"2e3", 2000.0, "2.0000000", "kHz", false},          {"", 0.0001, "0.0001", "Hz", true},
        {"1000000", 1.0e6, "1.0000000000", "MHz", false}};
    for (const Case& c : cases) {
        desktop.beeps = 0;
        Enter("Text1", c.typed);
        EXPECT_DOUBLE_EQ(panel.mFreq, c.hertz) << c.typed;
        EXPECT_EQ(Text("Text1"), QLatin1StringView(c.shown));
        EXPECT_EQ(Get<QLabel>("Label4")->text(), QLatin1StringView(c.unit));
        EXPECT_EQ(desktop.beeps, c.message ? 1 : 0) << c.typed;
        EXPECT_TRUE(HasFocus("Text1"));
    }
    EXPECT_EQ(Hint(), u"Frequencyrange: 0.0001 to 15000000.0000");
}

TEST_F(EntryFields, AUnitIsAppliedToTheSameDigitsAtTheNextCommit) {
    Open();
    Enter("Text1", "100");
    EXPECT_EQ(Text("Text1"), u"100.0000000");
    for (const bool byMouse : {true, false}) {
        panel.mFreq = 1.0e5;
        form->RefreshPanel();
        if (byMouse) {
            Click("unit_2");
        } else {
            Get("unit_1")->setFocus();
            Key(Qt::Key_Right);
        }
        EXPECT_TRUE(HasFocus("Text1") && Checked("unit_2"));
        EXPECT_EQ(panel.mFreq, 1.0e5);
        EXPECT_EQ(Text("Text1"), u"100.0000000");
    }
    Key(Qt::Key_Return);
    EXPECT_EQ(panel.mFreq, 15.0e6);
    EXPECT_EQ(Hint(), u"Frequencyrange: 0.0001 to 15000000.0000");
}

TEST_F(EntryFields, FilterEveryWayInAndDropTheRestInSilence) {
    Open();
    Type("Text1", "+1,5-e2x");
    EXPECT_EQ(Text("Text1"), u"1.5E2");
    Type("Text4", "-0.1 V");
    EXPECT_EQ(Text("Text4"), u"-0.1");
    QGuiApplication::clipboard()->setText(QStringLiteral("x12,5 Hz"));
    Type("Text1", "");
    QTest::keySequence(Get("Text1"), QKeySequence::Paste);
    EXPECT_EQ(Text("Text1"), u"12.5");
    QTest::keyClick(Get("Text1"), 'z', Qt::AltModifier);
    QTest::keyClick(Get("Text1"), '-', Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Text("Text1"), u"12.5");
    EXPECT_EQ(desktop.beeps, 0);
    ShowTab(1);
    Click("opmod_0");
    Type("Text5", "3.E7");
    EXPECT_EQ(Text("Text5"), u"37");
}

TEST_F(EntryFields, EveryLossOfTheFocusCommitsWhatIsShown) {
    Open();
    panel.mAmp = 1.234567;
    form->RefreshPanel();
    Get("Text2")->setFocus();
    Get("Text4")->setFocus();
    EXPECT_DOUBLE_EQ(panel.mAmp, 1.23457);  // nobody typed anything
    Type("Text4", "0.1");
    QTest::keyClick(Get("Text4"), Qt::Key_Tab);
    EXPECT_DOUBLE_EQ(panel.mOffset, 0.1);
    // A window that is merely deactivated leaves the entry alone.
    Type("Text4", "0.2");
    QFocusEvent deactivated(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(Get("Text4"), &deactivated);
    EXPECT_DOUBLE_EQ(panel.mOffset, 0.1);
    EXPECT_EQ(Text("Text4"), u"0.2");
}

TEST_F(EntryFields, ARebuildOfThePanelIsNotOverwrittenByAStaleField) {
    Open();
    Type("Text2", "3");
    panel.mAmp = 5.0;
    panel.mFreq = 2.0e6;  // another unit, which takes the focus away from the level
    form->RefreshPanel();
    EXPECT_EQ(panel.mAmp, 5.0);
    EXPECT_EQ(Text("Text2"), u"5.00000");
    EXPECT_TRUE(HasFocus("Text1"));
}

TEST_F(EntryFields, EnterWalksTheRings) {
    Open();
    ShowTab(2);
    Click("opwob_1");
    Enter("Text10", "2");
    EXPECT_TRUE(HasFocus("Text11"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus("Text12"));
    Key(Qt::Key_Enter);
    EXPECT_TRUE(HasFocus("Text10"));
    ShowTab(1);
    Click("opmod_1");
    Enter("Text6", "3");
    EXPECT_TRUE(HasFocus("Text7"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus("Text6"));
    Click("opmod_2");
    Enter("Text8", "12.34");
    EXPECT_TRUE(HasFocus("Text9"));
    EXPECT_DOUBLE_EQ(panel.mPhasea, 12.3);  // the field was left as well
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus("Text8"));
}

TEST_F(EntryFields, SweepFieldsFollowTheSweepOption) {
    Open();
    ShowTab(2);
    const char* const controls[] = {"Text10",  "Text11",  "Text12",  "Label18",
                                    "Label19", "Label20", "Label21", "Label22"};
    for (const int option : {1, 0, 2}) {
        Click(qPrintable(QStringLiteral("opwob_%1").arg(option)));
        EXPECT_EQ(panel.bmWobbel, option);
        for (const char* const name : controls) {
            EXPECT_EQ(Get(name)->isEnabled(), option > 0) << name;
        }
    }
    Enter("Text10", "20000");  // kHz
    EXPECT_EQ(panel.msWobbel, 15.0e6);
    EXPECT_EQ(Text("Text10"), u"15.0000000000");
    EXPECT_EQ(Get<QLabel>("Label18")->text(), u"MHz");
    Enter("Text11", "1");
    EXPECT_EQ(panel.meWobbel, 1000.0);  // below the start
    Type("Text12", "1.234");
    Get<EntryField>("Text12")->Commit();
    EXPECT_DOUBLE_EQ(panel.mtWobbel, 1.234);
    EXPECT_EQ(Text("Text12"), u"1.23");
    Get("Text10")->setFocus();
    EXPECT_DOUBLE_EQ(panel.mtWobbel, 1.23);
}

TEST_F(EntryFieldsInACommaLocale, BothSeparatorsArriveAsTheUsers) {
    Open();
    EXPECT_EQ(Text("Text1"), u"1,0000000");
    Type("Text1", "2.5");
    EXPECT_EQ(Text("Text1"), u"2,5");
    Type("Text4", "-0,25");
    Key(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(panel.mOffset, -0.25);
    EXPECT_EQ(Text("Text4"), u"-0,2500");
    EXPECT_DOUBLE_EQ(panel.mFreq, 2500.0);
    Connect();
    line.wire.clear();
    Click("Command4");
    EXPECT_TRUE(line.wire.contains("frq:00002500.0000\ramp:0.21\r"));
}

}  // namespace
