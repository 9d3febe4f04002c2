#include <QClipboard>
#include <QContextMenuEvent>
#include <QTimer>

#include "PanelBench.h"

namespace {

using EntryFields = OpenPanel;

TEST_F(EntryFields, EnterCommitsClampsAndShowsTheNormalForm) {
    // typed, stored in hertz, shown, its unit, messages
    const std::tuple<const char*, double, const char16_t*, const char16_t*, int> cases[] = {
        {"0.0000001", 0.0001, u"0.0001", u"Hz", 0},  // the field stood at kHz
        {"1000", 1000.0, u"1.0000000", u"kHz", 0},           {"0.9999999", 999.9999, u"999.9999", u"Hz", 0},
        {"1000", 1000.0, u"1.0000000", u"kHz", 0},           {"999.9999999", 999999.9999, u"999.9999999", u"kHz", 0},
        {"1000", 1.0e6, u"1.0000000000", u"MHz", 0},         {"15", 15.0e6, u"15.0000000000", u"MHz", 0},
        {"15.0000001", 15.0e6, u"15.0000000000", u"MHz", 1}, {"1/2", 0.0001, u"0.0001", u"Hz", 1}};
    for (const auto& [typed, hertz, shown, unit, messages] : cases) {
        desktop.beeps = 0;
        Enter("Text1", typed);
        EXPECT_DOUBLE_EQ(panel.mFreq, hertz) << typed;
        EXPECT_EQ(Text("Text1"), shown);
        EXPECT_EQ(Get<QLabel>("Label4")->text(), unit);
        EXPECT_EQ(desktop.beeps, messages) << typed;
        EXPECT_TRUE(HasFocus("Text1"));
    }
    EXPECT_EQ(Hint(), u"Frequencyrange: 0.0001 to 15000000.0000");
}

TEST_F(EntryFields, AUnitIsAppliedToTheSameDigitsAtTheNextCommit) {
    for (const bool byMouse : {true, false}) {
        panel.mFreq = 1.0e5;
        form->RefreshPanel();
        Get("unit_1")->setFocus();
        byMouse ? Click("unit_2") : Key(Qt::Key_Right);
        EXPECT_TRUE(HasFocus("Text1"));
        EXPECT_TRUE(Checked("unit_2"));
        EXPECT_EQ(panel.mFreq, 1.0e5);
        EXPECT_EQ(Text("Text1"), u"100.0000000");
    }
    Key(Qt::Key_Return);
    EXPECT_EQ(panel.mFreq, 15.0e6);
}

TEST_F(EntryFields, FilterEveryWayInAndDropTheRestInSilence) {
    Type("Text1", "+1,5-e2x");
    EXPECT_EQ(Text("Text1"), u"1.5E2");
    Type("Text4", "-0.1 V");
    EXPECT_EQ(Text("Text4"), u"-0.1");
    QGuiApplication::clipboard()->setText(QStringLiteral("x12,5 Hz"));
    Type("Text1", "");
    QTest::keySequence(Get("Text1"), QKeySequence::Paste);
    QTest::keyClick(Get("Text1"), 'z', Qt::AltModifier);
    QTest::keyClick(Get("Text1"), '-', Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Text("Text1"), u"12.5");
    QTimer::singleShot(0, form.get(), [] {
        auto* const menu = QApplication::activePopupWidget();
        for (QAction* const action : menu->actions()) {
            action->text().startsWith(u"&Paste") ? action->trigger() : void();
        }
        menu->close();
    });
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(Get("Text1"), &menu);
    EXPECT_EQ(Text("Text1"), u"12.512.5");
    Type("Text1", "12.5");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("x7"));
    QApplication::sendEvent(Get("Text1"), &composed);
    EXPECT_EQ(Text("Text1"), u"12.57");
    EXPECT_EQ(desktop.beeps, 0);
}

TEST_F(EntryFields, EveryLossOfTheFocusCommitsWhatIsShown) {
    panel.mAmp = 1.234567;
    form->RefreshPanel();
    Get("Text2")->setFocus();
    Get("Text4")->setFocus();
    EXPECT_DOUBLE_EQ(panel.mAmp, 1.23457);  // nobody typed anything
    Type("Text4", "0.1");
    QTest::keyClick(Get("Text4"), Qt::Key_Tab);
    EXPECT_DOUBLE_EQ(panel.mOffset, 0.1);
}

TEST_F(EntryFields, ARebuildOfThePanelIsNotOverwrittenByAStaleField) {
    Type("Text2", "3");
    panel.mAmp = 5.0;
    panel.mFreq = 2.0e6;  // another unit, which takes the focus away from the level
    form->RefreshPanel();
    EXPECT_EQ(panel.mAmp, 5.0);
    EXPECT_EQ(Text("Text2"), u"5.00000");
    EXPECT_TRUE(HasFocus("Text1"));
}

TEST_F(EntryFields, EnterWalksTheRings) {
    const std::tuple<int, const char*, std::vector<const char*>> rings[] = {
        {2, "opwob_1", {"Text10", "Text11", "Text12", "Text10"}},
        {1, "opmod_1", {"Text6", "Text7", "Text6"}},
        {1, "opmod_2", {"Text8", "Text9", "Text8"}}};
    for (const auto& [tab, option, fields] : rings) {
        ShowTab(tab);
        Click(option);
        Get(fields.front())->setFocus();
        for (const char* const field : fields) {
            EXPECT_TRUE(HasFocus(field)) << field;
            Key(Qt::Key_Return);
        }
    }
}

TEST_F(EntryFields, SweepFieldsFollowTheSweepOption) {
    ShowTab(2);
    for (const auto& [option, sweep] : {std::pair("opwob_1", 1), {"opwob_0", 0}, {"opwob_2", 2}}) {
        Click(option);
        EXPECT_EQ(panel.bmWobbel, sweep);
        EXPECT_EQ(Get("Text12")->isEnabled(), sweep > 0);
    }
    Enter("Text10", "20000");  // kHz
    Enter("Text11", "1");
    Enter("Text12", "1.234");
    EXPECT_EQ(Texts({"Text10", "Text11", "Text12"}), u"15.0000000000 1.0000000 1.23");  // also below the start
}

TEST_F(EntryFields, BothSeparatorsArriveAsTheUsers) {
    program.numbers = UserNumbers(QLocale(QLocale::German, QLocale::Germany));
    form->RefreshPanel();
    EXPECT_EQ(Text("Text1"), u"1,0000000");
    Type("Text1", "2.5");
    EXPECT_EQ(Text("Text1"), u"2,5");
    Enter("Text4", "-0,25");
    EXPECT_DOUBLE_EQ(panel.mOffset, -0.25);
    EXPECT_EQ(Text("Text4"), u"-0,2500");
    EXPECT_DOUBLE_EQ(panel.mFreq, 2500.0);
    Key(Qt::Key_Down);
    EXPECT_EQ(Text("Text4"), u"-0,3500");
}

}  // namespace
