#include "LinkBench.h"

namespace {

using SerialTransport_ = LinkBench;

TEST_F(SerialTransport_, TreatsCommaCrAndPacingByTheKindOfSend) {
    ConnectSilently();
    struct Case {
        void (SerialTransport::*send)();
        const char* text;
        const char* wire;
        qint64 waitedMs;
    };
    const Case cases[] = {{&SerialTransport::SendCommand, "amp:0,21", "amp:0.21\r", 5},
                          {&SerialTransport::SendCommand, "a,b,c", "a.b,c\r", 5},
                          {&SerialTransport::SendCommand, "twice\r", "twice\r\r", 5},
                          {&SerialTransport::SendCommandFast, "arp4:1=2", "arp4:1=2\r", 0},
                          {&SerialTransport::SendCommandSlow, "time:12,30", "time:12,30\r", 55},
                          {&SerialTransport::SendQuery, "frq?", "frq?\r", 5},
                          {&SerialTransport::SendQuery, "frq?\r", "frq?\r", 5}};
    for (const Case& c : cases) {
        line.wire.clear();
        clock.waitedMs = 0;
        state.CommandText = QString::fromLatin1(c.text);
        (link.transport.*c.send)();
        line.FlushOutput();  // a line that is not paced may wait for more
        EXPECT_EQ(line.wire, c.wire);
        EXPECT_EQ(state.CommandText.toLatin1(), c.wire);  // the text keeps its CR
        EXPECT_EQ(clock.waitedMs, c.waitedMs) << c.text;
    }
}

TEST_F(SerialTransport_, DropsACommandOnAClosedPortWithoutAWord) {
    state.CommandText = QStringLiteral("a,b");
    state.SerialFault = 1;
    link.transport.SendCommand();
    EXPECT_EQ(state.CommandText, u"a,b");
    EXPECT_EQ(state.SerialFault, 0);
    EXPECT_TRUE(line.wire.isEmpty());
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(SerialTransport_, CollectsALineUpToItsCr) {
    ConnectSilently();
    line.replies = {{QStringLiteral("ID?"), "KL5276\n-2\rrest"}, {QStringLiteral("lone?"), "\r"}};
    state.CommandText = QStringLiteral("ID?");
    link.transport.QueryUnit();
    EXPECT_EQ(state.ReplyText, u"KL5276\n-2");
    // What is left of the last reply must not be taken for the next one.
    state.CommandText = QStringLiteral("lone?");
    link.transport.QueryUnit();
    EXPECT_EQ(state.ReplyText, QString());
    EXPECT_EQ(state.SerialFault, 0);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(SerialTransport_, GivesEachByteThreeSeconds) {
    ConnectSilently();
    line.replies[QStringLiteral("sta?")] = "SIN\r";
    line.byteDelayMs = 2900;
    state.CommandText = QStringLiteral("sta?");
    link.transport.QueryUnit();
    EXPECT_EQ(state.ReplyText, u"SIN");
    EXPECT_TRUE(desktop.boxes.isEmpty());

    line.replies[QStringLiteral("amp?")] = "1.5";
    line.byteDelayMs = 0;
    const qint64 before = clock.nowMs;
    state.CommandText = QStringLiteral("amp?");
    front.remoteChecked = true;
    link.transport.QueryUnit();
    EXPECT_EQ(state.ReplyText, u"1.5");  // what came stays
    EXPECT_GT(clock.nowMs - before, 3000);
    EXPECT_LT(clock.nowMs - before, 3200);
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"amp?")));
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_EQ(state.SerialFault, 1);
    EXPECT_FALSE(front.remoteChecked);

    link.transport.ShowSerialError();  // one fault gives one message
    link.transport.QueryUnit();        // refused, with the old reply left alone
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(state.ReplyText, u"1.5");
}

TEST_F(SerialTransport_, EndsALineThatNeverEnds) {
    ConnectSilently();
    line.replies[QStringLiteral("frq?")] = QByteArray(5000, '7');
    state.CommandText = QStringLiteral("frq?");
    link.transport.QueryUnit();
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"frq?")));
    EXPECT_LT(clock.nowMs, 3000);
}

TEST_F(SerialTransport_, ReportsAStalledLineOnceAndGoesOnInSilence) {
    ConnectSilently();
    line.takesOutput = false;
    link.commands.SendAllToUnit();
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Serial - Error| Data send error ( sin )")));
    EXPECT_EQ(state.LinkUp, 0);
}

}  // namespace
