#include <QHelpEvent>

#include "PanelBench.h"

namespace {

using ConnectionPanel = OpenPanel;

TEST_F(ConnectionPanel, WithoutALinkNothingMoves) {
    for (const char* const command :
         {"mnuRdArb4", "mnuStArb4", "mnuRdArb16", "mnuStArb16", "mnuCmpArb4", "mnuCmpArb16", "Command3", "Command4"}) {
        Get<QLabel>("Label8")->clear();
        QMetaObject::invokeMethod(Get<QObject>(command), *command == 'm' ? "trigger" : "click");
        EXPECT_EQ(Hint(), u"Not connected - RM ist off") << command;
    }
    Click("Command7");
    EXPECT_TRUE(line.wire.isEmpty());
}

TEST_F(ConnectionPanel, TellsWhereThereIsNoPortUntilOneIsPluggedIn) {
    for (const bool found : {false, true}) {
        portFound = found;
        QEvent activation(QEvent::ActivationChange);
        QCoreApplication::sendEvent(form.get(), &activation);
        QCoreApplication::processEvents();
        EXPECT_EQ(Get<QLabel>("linkstate")->text(),
                  found ? u"No link" : u"No link: no serial port found, see Data, Com. port");
    }
}

TEST_F(ConnectionPanel, TellsThatItLooksForTheInstrumentUntilOneAnswers) {
    QStringList meanwhile;
    line.reply = [](const QString&, const QString&) { return QByteArray("DMM\r"); };
    desktop.whileShown = [&] {
        QCoreApplication::processEvents();
        meanwhile += Get<QLabel>("linkstate")->text();
    };
    Click("cRM");
    EXPECT_EQ(meanwhile, QStringList(QStringLiteral("Looking for the instrument")));
    Connect();
    line.takesOutput = false;
    Click("Command4");
    QCoreApplication::processEvents();
    EXPECT_EQ(Get<QLabel>("linkstate")->text(), u"Nothing goes out: cable, power or port?");
}

TEST_F(ConnectionPanel, ASecondOperationIsRefusedDuringPacing) {
    Connect();
    bool pressed = false;
    Get("Command4")->setFocus();
    clock.onWait = [&] {
        if (std::exchange(pressed, true)) {
            return;
        }
        const QByteArray before = line.wire;
        for (const char* const control : {"Command3", "Command4", "Command7", "cRM", "Opoutput_0"}) {
            Click(control);
        }
        Get<QAction>("mnulset")->trigger();
        QTest::keyClick(Get("Opoutput_1"), Qt::Key_Up);
        ExpectChecked({"cRM", "Opoutput_1"});
        EXPECT_TRUE(HasFocus("Command4"));
        EXPECT_EQ(panel.tmOut, kFalse);
        EXPECT_EQ(desktop.dialogs, QStringList());
        EXPECT_EQ(desktop.beeps, 7);
        EXPECT_EQ(line.wire, before);
    };
    Key(Qt::Key_Space);
    EXPECT_TRUE(pressed);
    EXPECT_EQ(line.wire.count("sin\r"), 1);
    EXPECT_TRUE(line.wire.endsWith("frq?\r"));
}

TEST_F(ConnectionPanel, ClosingDuringAnOperationWaitsForItsEnd) {
    Connect();
    bool closed = false;
    clock.onWait = [&] {
        if (!std::exchange(closed, true)) {
            EXPECT_FALSE(form->close());
            EXPECT_TRUE(desktop.boxes.isEmpty());
        }
    };
    bool seen = true;
    line.reply = [&, answer = line.reply](const QString& command, const QString& settings) {
        seen = command == u"RM0" ? form->isVisible() : seen;
        return answer(command, settings);
    };
    Click("Command4");
    QCoreApplication::processEvents();
    EXPECT_FALSE(seen);  // the last word has left from a program that is out of sight
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Exit Program|Save default settings?")));
    EXPECT_TRUE(line.wire.endsWith("OT0\rRM0\r"));
}

struct ComsetDialog : OpenPanel {
    void ShowDialog() { Get<QAction>("mnucom")->trigger(); }
};

TEST_F(ComsetDialog, ShowsThePortInForceAndConnectsWithTheChoice) {
    ShowDialog();
    ExpectChecked({"port_2", "baud_3"});
    line.replies = {{QStringLiteral("ID?"), "KL5276\r"}, {QStringLiteral("VER?"), "V3\r"}};
    Click("port_3");
    EXPECT_EQ(Get<QLabel>("portDevice")->text(), u"device 3");
    Click("baud_5");
    Click("cbok");
    EXPECT_EQ(line.openings.constLast(), u"3: 115200,N,8,2");
    EXPECT_FALSE(Get("comset")->isVisible());
    EXPECT_EQ(line.Lines().constLast(), u"VER?");  // nothing is read
    QHelpEvent hover(QEvent::ToolTip, {}, {});
    QCoreApplication::sendEvent(Get("cRM"), &hover);
    EXPECT_EQ(Get("cRM")->toolTip(), u"Com3: device 3!");
}

TEST_F(ComsetDialog, EnterPressesTheButtonThatHasTheFocusAndNoChoiceIsLeftBehind) {
    Connect();
    ShowDialog();
    Click("port_4");
    Get("cbabbruch")->setFocus();
    QTest::keyClick(Get("cbabbruch"), Qt::Key_Return);
    EXPECT_FALSE(Get("comset")->isVisible());
    ShowDialog();
    EXPECT_TRUE(Checked("port_2"));
}

TEST_F(ComsetDialog, ClosingTheWindowEndsAnAutosearchAndSendsNothingMore) {
    ShowDialog();
    int asked = 0;  // the close comes at the third of the rates
    line.reply = [&](const QString&, const QString&) { return QByteArray(++asked < 3 ? "noise\r" : ""); };
    clock.onWait = [&] { asked == 3 && form->close(); };
    Click("Command1");
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(desktop.boxes.size(), 1);  // of the wait for a reply in which the close came
    line.wire.clear();
    QCoreApplication::processEvents();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(line.wire, "");  // there is nothing to give back
}

TEST_F(ComsetDialog, AnUnknownRateIsKept) {
    ShowDialog();
    Click("cbabbruch");
    program.preferences.ComBaudRate = 1200;
    ShowDialog();
    EXPECT_FALSE(Checked("baud_3"));
    Click("cbok");
    EXPECT_EQ(line.openings.constFirst(), u"2: 1200,N,8,2");
}

}  // namespace
