#include "LinkBench.h"

namespace {

struct Transport : LinkBench {
    Transport() { ConnectSilently(); }

    void Query(const char* query) {
        state.CommandText = QString::fromLatin1(query);
        link.transport.QueryUnit();
    }
};

TEST_F(Transport, TreatsCommaCrAndPacingByTheKindOfSend) {
    const std::tuple<void (SerialTransport::*)(), const char*, const char*, qint64> cases[] = {
        {&SerialTransport::SendCommand, "amp:0,21", "amp:0.21\r", 5},
        {&SerialTransport::SendCommand, "a,b,c", "a.b,c\r", 5},
        {&SerialTransport::SendCommand, "twice\r", "twice\r\r", 5},
        {&SerialTransport::SendCommandFast, "arp4:1=2", "arp4:1=2\r", 0},
        {&SerialTransport::SendCommandSlow, "time:12,30", "time:12,30\r", 55},
        {&SerialTransport::SendQuery, "frq?\r", "frq?\r", 5}};
    for (const auto& [send, text, wire, waitedMs] : cases) {
        line.wire.clear();
        clock.nowMs = 0;
        state.CommandText = QString::fromLatin1(text);
        (link.transport.*send)();
        line.FlushOutput();  // a line that is not paced may wait for more
        EXPECT_EQ(line.wire, wire);
        EXPECT_EQ(state.CommandText.toLatin1(), wire);  // the text keeps its CR
        EXPECT_EQ(clock.nowMs, waitedMs) << text;
    }
}

TEST_F(Transport, CollectsALineUpToItsCr) {
    line.replies = {{QStringLiteral("ID?"), "KL5276\n-2\rrest"}, {QStringLiteral("lone?"), "\r"}};
    Query("ID?");
    EXPECT_EQ(state.ReplyText, u"KL5276\n-2");
    // What is left of the last reply must not be taken for the next one.
    Query("lone?");
    EXPECT_EQ(state.ReplyText, QString());
    EXPECT_EQ(desktop.boxes, QStringList());
}

TEST_F(Transport, GivesEachByteThreeSeconds) {
    line.replies[QStringLiteral("sta?")] = "SIN\r";
    line.byteDelayMs = 2900;
    Query("sta?");
    EXPECT_EQ(state.ReplyText, u"SIN");

    line.replies[QStringLiteral("amp?")] = "1.5";
    line.byteDelayMs = 0;
    const qint64 before = clock.nowMs;
    Query("amp?");
    EXPECT_EQ(state.ReplyText, u"1.5");  // what came stays
    EXPECT_EQ((clock.nowMs - before) / 100, 30);
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"amp?")));
    EXPECT_EQ(state.LinkUp, 0);

    link.transport.ShowSerialError(LinkFault::NoAnswer);  // one fault gives one message
    link.transport.QueryUnit();                           // refused, with the old reply left alone
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(state.ReplyText, u"1.5");
}

TEST_F(Transport, ServesTheUserWhileTheLineIsBusyAndReportsOnceThatItHasStalled) {
    line.busyFlushes = 7;
    int served = 0;
    clock.onWait = [&] { ++served; };
    link.commands.SendOutput();
    EXPECT_EQ(served, 7 + 1);  // and the pacing
    EXPECT_EQ(line.wire, "OT0\r");
    line.takesOutput = false;
    desktop.busy = true;
    link.commands.SendAllToUnit();
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Serial - Error| Data send error ( sin )")));
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_FALSE(desktop.busy);
    state.LinkUp = 1;
    EXPECT_FALSE(link.transport.ClosePort());  // the instrument has not got its front panel back
    EXPECT_TRUE(line.PortOpen());
}

TEST_F(Transport, AReplyShowsThatTheLineIsFree) {
    line.lineFreeMs = 40'000;
    line.replies = {{QStringLiteral("ID?"), "KL5276\r"}};
    Query("ID?");
    EXPECT_EQ(state.ReplyText, u"KL5276");
    Query("sta?");
    EXPECT_LT(clock.nowMs, 3200);
}

TEST_F(Transport, WhoAbandonsAnOperationWaitsForNoLineAndIsToldOfNoFault) {
    const LinkOperation operation = link.gate.Join();
    line.lineFreeMs = 40'000;
    clock.onWait = [this] { link.gate.Abandon(); };
    panel.tmOut = kTrue;
    const PanelState before = panel;
    link.readBack.ReadAllFromUnit();
    program.memories.ArbMemory4.fill(99);
    link.memory.ReadArb(kMemory4k);
    EXPECT_EQ(program.memories.ArbMemory4[0], 99);
    EXPECT_LT(clock.nowMs, 1000);
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_EQ(state.LinkUp, 1);
    EXPECT_TRUE(panel == before);
}

using Connecting = LinkBench;

TEST_F(Connecting, ThePortClosesWhenTheLineHasCarriedTheLastWord) {
    ConnectSilently();
    line.lineFreeMs = 5000;
    int served = 0;
    clock.onWait = [&] { served += line.PortOpen() && front.holds ? 1 : 0; };
    link.connection.DisconnectUnit();
    EXPECT_FALSE(front.holds);
    EXPECT_EQ(line.wire, "RM0\r");
    EXPECT_GT(served, 100);  // the user's events meanwhile
    EXPECT_EQ(clock.nowMs, 5000);
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(state.LinkUp, 0);
}

TEST_F(Connecting, TheSearchBeginsEachPortAtTheUsualRateAndForgetsWhatItFoundBefore) {
    line.ports = {4};
    program.preferences.ComBaudRate = 4800;
    line.reply = [](const QString&, const QString&) { return QByteArray("KL5276\r"); };
    link.connection.AutoSearchUnit();
    EXPECT_EQ(line.openings.join(u' '), u"4: 19200,N,8,2");
    EXPECT_EQ(desktop.boxes.constLast(), u"Autosearch|Unit found at port:  4   Baud:  19200");
    line.reply = [](const QString&, const QString&) { return QByteArray("DMM\r"); };
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes.constLast(), u"Serial - Error|Unit not found");
    EXPECT_EQ(line.openings.size(), 2 + 5);
    line.reply = [this](const QString&, const QString&) {
        line.ports.clear();  // it goes away in the middle
        return QByteArray("noise\r");
    };
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes.constLast(), kReadError.arg(u"ID?"));
    EXPECT_EQ(state.LinkUp, 0);
}

TEST_F(Connecting, ASilentUnitGivesTwoBoxesAndALoneCrCountsAsFoundButNotAsAVersion) {
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes, QStringList({kReadError.arg(u"ID?"), kReadError.arg(u"ID?")}));
    EXPECT_EQ(program.preferences.ComBaudRate, 19200);
    line.replies[QStringLiteral("ID?")] = "\r";
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes.constLast(), kReadError.arg(u"VER?"));
    EXPECT_EQ(state.LinkUp, 0);
    line.replies[QStringLiteral("VER?")] = "\r";
    link.connection.ConnectUnit();
    EXPECT_EQ(state.LinkUp, 1);
}

}  // namespace
