#include <QHelpEvent>

#include "PanelBench.h"

namespace {

using ConnectionPanel = PanelBench;

TEST_F(ConnectionPanel, WithoutALinkReadAndSetOnlyHint) {
    Open();
    for (const char* const button : {"Command3", "Command4"}) {
        Get<QLabel>("Label8")->clear();
        Click(button);
        EXPECT_EQ(Hint(), u"Not connected - RM ist off");
    }
    Click("Command7");
    EXPECT_TRUE(line.wire.isEmpty());
    EXPECT_EQ(panel.mFreq, 1000.0);
}

TEST_F(ConnectionPanel, ASecondOperationIsRefusedDuringPacing) {
    Open();
    Connect();
    bool pressed = false;
    QByteArray whileBusy;
    Get("Command4")->setFocus();
    clock.onWait = [&] {
        if (std::exchange(pressed, true)) {
            return;
        }
        const QByteArray before = line.wire;
        for (const char* const control : {"Command3", "Command4", "Command7", "cRM", "Opoutput_0"}) {
            Click(control);
        }
        EXPECT_TRUE(Checked("cRM"));
        EXPECT_TRUE(Checked("Opoutput_1"));
        EXPECT_EQ(panel.tmOut, kFalse);
        EXPECT_TRUE(HasFocus("Command4"));
        EXPECT_EQ(desktop.beeps, 5);
        EXPECT_EQ(line.wire, before);
    };
    Key(Qt::Key_Space);
    EXPECT_TRUE(pressed);
    EXPECT_EQ(line.wire.count("sin\r"), 1);
    EXPECT_TRUE(line.wire.endsWith("frq?\r"));
}

TEST_F(ConnectionPanel, ClosingDuringAnOperationWaitsForItsEnd) {
    Open();
    Connect();
    bool closed = false;
    clock.onWait = [&] {
        if (!std::exchange(closed, true)) {
            EXPECT_FALSE(form->close());
            EXPECT_TRUE(desktop.boxes.isEmpty());
        }
    };
    Click("Command4");
    EXPECT_TRUE(form->isVisible());
    QCoreApplication::processEvents();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Exit Program|Save default settings?")));
    EXPECT_TRUE(line.wire.endsWith("frq?\rRM0\r"));
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(ConnectionPanel, ClosingWhileFaultedSendsNothing) {
    Open();
    Connect();
    program.link.LinkUp = 0;
    form->close();
    EXPECT_TRUE(line.wire.isEmpty());
}

struct ComsetDialog : PanelBench {
    void ShowDialog() { Get<QAction>("mnucom")->trigger(); }
};

TEST_F(ComsetDialog, ShowsThePortInForceAndConnectsWithTheChoice) {
    Open();
    ShowDialog();
    EXPECT_TRUE(Checked("port_2"));
    EXPECT_TRUE(Checked("baud_3"));
    EXPECT_EQ(Get("port_3")->toolTip(), u"device 3");
    EXPECT_EQ(Get<QLabel>("portDevice")->text(), u"device 2");
    line.replies = {{QStringLiteral("ID?"), "KL5276\r"}, {QStringLiteral("VER?"), "V3\r"}};
    Click("port_3");
    EXPECT_EQ(Get<QLabel>("portDevice")->text(), u"device 3");
    Click("baud_5");
    Click("cbok");
    EXPECT_EQ(line.openings.constLast(), u"3: 115200,N,8,2");
    EXPECT_EQ(program.link.LinkUp, 1);
    EXPECT_FALSE(Get("comset")->isVisible());
    EXPECT_EQ(line.Lines().constLast(), u"VER?");  // nothing is read
    QHelpEvent hover(QEvent::ToolTip, {}, {});
    QCoreApplication::sendEvent(Get("cRM"), &hover);
    EXPECT_EQ(Get("cRM")->toolTip(), u"Com3: device 3!");

    // Confirmed while linked: given back and connected again.
    line.wire.clear();
    ShowDialog();
    EXPECT_EQ(Get<QLabel>("portDevice")->text(), u"device 3!");
    Click("cbok");
    EXPECT_EQ(line.Lines().join(u' '), u"RM0 ID? ID? VER?");
    EXPECT_EQ(program.link.LinkUp, 1);
}

TEST_F(ComsetDialog, EnterPressesTheButtonThatHasTheFocus) {
    Open();
    Connect();
    ShowDialog();
    Click("port_4");
    Get("cbabbruch")->setFocus();
    QTest::keyClick(Get("cbabbruch"), Qt::Key_Return);
    EXPECT_FALSE(Get("comset")->isVisible());
    EXPECT_TRUE(line.wire.isEmpty());
    clock.onWait = [this] { ShowDialog(); };
    Click("Opoutput_0");
    EXPECT_TRUE(Checked("port_2"));  // the abandoned choice is gone
}

TEST_F(ComsetDialog, ClosingTheWindowEndsAnAutosearch) {
    Open();
    ShowDialog();
    line.reply = nullptr;
    clock.onWait = [this] { form->close(); };
    Click("Command1");
    EXPECT_EQ(desktop.boxes.size(), 2);  // of the first port
    QCoreApplication::processEvents();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ComsetDialog, AnUnknownRateIsKeptAndExitChangesNothing) {
    Open();
    program.preferences.ComBaudRate = 1200;
    ShowDialog();
    for (int i = 1; i <= 5; ++i) {
        EXPECT_FALSE(Checked(qPrintable(QStringLiteral("baud_%1").arg(i))));
    }
    Click("port_1");
    Click("cbabbruch");
    EXPECT_EQ(program.preferences.ComPortNumber, 2);
    EXPECT_TRUE(line.openings.isEmpty());
    ShowDialog();
    Click("cbok");
    EXPECT_EQ(line.openings.constFirst(), u"2: 1200,N,8,2");
}

}  // namespace
