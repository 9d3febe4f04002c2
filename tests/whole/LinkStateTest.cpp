#include <QAccessible>

#include "WholeBench.h"

namespace {

struct WholeLinkState : WholeBench {
    // linkstate, once what was pressed has had its effect.
    QString State() {
        QCoreApplication::processEvents();
        auto* const linkstate = panel.Get<QLabel>("linkstate");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(linkstate)->text(QAccessible::Name), linkstate->text());
        return linkstate->text();
    }

    // "control: what its mark tells" of each mark in sight or on another tab.
    QStringList Marks() {
        QCoreApplication::processEvents();
        QStringList marks;
        for (const QWidget* const mark : panel.form->findChildren<QWidget*>(QStringLiteral("changed"))) {
            if (!mark->isHidden()) {
                EXPECT_EQ(mark->toolTip(), mark->accessibleDescription());
                marks += mark->parent()->objectName() + u": " + mark->toolTip();
            }
        }
        marks.sort();
        return marks;
    }

    void ExpectMark(const QString& mark) {
        EXPECT_EQ(Marks(), QStringList(mark));
        EXPECT_EQ(State(), u"Linked, changed: not set yet");
        EXPECT_TRUE(panel.Get("Command4")->font().bold());
        panel.Click("Command4");
        EXPECT_EQ(Marks(), QStringList());
        EXPECT_EQ(State(), u"Linked, as read");
        EXPECT_FALSE(panel.Get("Command4")->font().bold());
    }
};

// the tab, the control, what is typed into it or null for a click, and the mark that comes of it
const std::tuple<int, const char*, const char*, const char16_t*> kChanges[]{
    {0, "Text2", "0,5", u"Text2: The instrument reported 1,00000 VPP"},
    {0, "vunit_1", nullptr, u"Text2: The instrument reported 0,50000 VPP"},
    {0, "Check1", nullptr, u"Check1: The instrument reported no offset"},
    {0, "opsignal_2", nullptr, u"opsignal_2: The instrument reported Sinusoid"},
    {1, "opmod_1", nullptr, u"opmod_1: The instrument reported Modulation Off"},
    {1, "Text7", "3", u"Text7: The instrument reported 1,1000000 kHz"},
    {1, "opmod_2", nullptr, u"opmod_2: The instrument reported FSK"},
    {1, "Text9", "12,5", u"Text9: The instrument reported 180,0°"},
    {0, "Check1", nullptr, u"Check1: The instrument reported an offset"},  // which AM would switch off by itself
    {1, "opmod_0", nullptr, u"opmod_0: The instrument reported PSK"},
    {1, "opAmMod_1", nullptr, u"opAmMod_1: The instrument reported Modulation internal 1kHz"},
    {1, "Text5", "33", u"Text5: The instrument reported 50%"},
    {2, "opmodes_3", nullptr, u"opmodes_3: The instrument reported Free-running mode"},
    {2, "opreference_1", nullptr, u"opreference_1: The instrument reported Internal crystal oscillator"},
    {2, "opwob_1", nullptr, u"opwob_1: The instrument reported Sweep: Off"},
    {2, "Text11", "7", u"Text11: The instrument reported 50,0000000 kHz"},
    {2, "Text12", "3", u"Text12: The instrument reported 1,00 s"},
};

TEST_F(WholeLinkState, MarksWhatIsChangedUntilItIsSet) {
    const QLocale german(QLocale::German);
    auto& instrument = Connect({}, 19200, german);
    EXPECT_EQ(State(), u"Linked, as read");
    panel.Enter("Text1", "2,5");
    EXPECT_EQ(Marks(), QStringList(QStringLiteral("Text1: The instrument reported 1,0000000 kHz")));
    EXPECT_TRUE(Lines(instrument).isEmpty());  // Enter sets nothing
    panel.Enter("Text1", "1");
    EXPECT_EQ(Marks(), QStringList());  // as it was, though typed in another way
    panel.Click("Opoutput_0");
    EXPECT_EQ(State(), u"Linked, as read");  // it went out at once

    panel.Enter("Text4", "0,1");  // of an offset that is off the instrument reports no value
    for (const auto& [tab, control, text, mark] : kChanges) {
        panel.ShowTab(tab);
        if (text != nullptr) {
            panel.Enter(control, text);
        } else {
            panel.Click(control);
        }
        ExpectMark(QString::fromUtf16(mark));
    }
    panel.Enter("Text1", "5");  // a sweep has its own frequencies
    EXPECT_EQ(State(), u"Linked, as read");
}

TEST_F(WholeLinkState, TellsWhatFailedUntilTheNextSuccess) {
    Open();
    EXPECT_FALSE(State().startsWith(u"Linked"));
    panel.Click("cRM");
    EXPECT_EQ(State(), u"Port not opened: in use, no rights, or none there?");
    Plug(1, {.model = "DMM"});
    panel.Get<QAction>("mnucom")->trigger();
    panel.Click("port_1");
    panel.Click("cbok");
    EXPECT_EQ(State(), u"What answers is no KL5276: port, line settings?");
    auto& instrument = Plug(2, {.rate = 19200});
    panel.Get<QAction>("mnucom")->trigger();
    panel.Click("port_2");
    panel.Click("cbok");
    EXPECT_EQ(State(), u"Linked, not read yet");
    panel.Enter("Text1", "2");
    EXPECT_EQ(State(), u"Linked, not read yet");
    panel.Click("Command3");
    EXPECT_EQ(State(), u"Linked, as read");

    panel.Click("Check1");
    panel.Click("Command3");  // no offset is reported; the tick stays
    EXPECT_EQ(Marks(), QStringList(QStringLiteral("Check1: The instrument reported no offset")));
    panel.Click("Check1");
    EXPECT_EQ(State(), u"Linked, as read");

    panel.Enter("Text1", "2");
    EXPECT_EQ(Marks().size(), 1);
    instrument.SetFaults({.endlessReply = true});
    panel.Click("Command3");
    EXPECT_EQ(State(), u"No answer: cable, power, port or rate?");
    EXPECT_EQ(Marks(), QStringList());  // nobody knows what the instrument holds
    instrument.SetFaults({});
    panel.Click("cRM");
    EXPECT_EQ(State(), u"Linked, as read");
    instrument.SetFaults({.vanishAfterLines = 2});
    panel.Click("Command3");
    EXPECT_EQ(State(), u"The port has gone: is its adapter plugged in?");

    Replug(instrument);
    panel.Click("cRM");
    EXPECT_EQ(State(), u"Linked, as read");
    instrument.Vanish();  // while nothing is sent
    EXPECT_TRUE(QTest::qWaitFor([this] { return State() == u"The port has gone: is its adapter plugged in?"; }));
}

}  // namespace
