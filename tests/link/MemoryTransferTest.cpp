#include "LinkBench.h"

namespace {

struct MemoryTransfers : LinkBench {
    MemoryTransfers() {
        ConnectSilently();
        memories.ArbMemory4.fill(99);
        memories.ArbMemory16.fill(-5);
        line.reply = [](const QString& command, const QString&) -> QByteArray {
            return command.endsWith(u'?') ? command.chopped(1).toLatin1() + "-12=3\r" : QByteArray();
        };
    }
    // In brief.
    QString Sent(const MemorySize& size) {
        line.wire.clear();
        link.memory.SendArb(size);
        const QStringList lines = line.Lines();
        const QString ends = QStringList(lines.first(2) + lines.last(2)).join(u' ');
        return QStringLiteral("%1 lines, %2, %3, %4")
            .arg(QString::number(lines.size()), ends, front.transfer, QString::number(front.progress.constLast()));
    }

    ArbMemories& memories = program.memories;
};

TEST_F(MemoryTransfers, WritesEveryPointBetweenItsTwoCommands) {
    EXPECT_EQ(Sent(kMemory4k),
              u"4098 lines, arc4 arp4:0=99 arp4:4095=99 are, Please wait. Send 4095 Values|4095, 4050");
    EXPECT_EQ(Sent(kMemory16k),
              u"16387 lines, arc16 arp16:0=-5 arp16:16384=-5 are, Please wait. Send 16384 Values|16384, 16300");
    EXPECT_EQ(clock.waitedMs, 20);  // only the four framing commands are paced
    EXPECT_TRUE(front.hidden && !desktop.busy);
    link.memory.ReadArb(kMemory4k);
    EXPECT_EQ(front.transfer, u"Please wait. Read 4096 Values|4095");
    EXPECT_EQ(front.progress.constLast(), 4050);
}

TEST_F(MemoryTransfers, StaysInSightUntilTheLineHasCarriedTheLastPoint) {
    const LinkOperation operation = link.gate.Join();
    line.lineFreeMs = 60'000;
    qint64 shownUntilMs = 0;
    clock.onWait = [&] { shownUntilMs = front.hidden || !desktop.busy ? shownUntilMs : clock.nowMs; };
    link.memory.SendArb(kMemory4k);
    EXPECT_EQ(shownUntilMs, line.lineFreeMs);
    EXPECT_EQ(front.progress.constLast(), 4050);
    EXPECT_TRUE(front.hidden);

    // The user closes the window meanwhile.
    line.lineFreeMs = clock.nowMs + 60'000;
    clock.onWait = [&] {
        if (line.wire.endsWith("are\r")) {
            link.gate.Abandon();
        }
    };
    const qint64 before = clock.nowMs;
    line.wire.clear();
    link.memory.SendArb(kMemory4k);
    EXPECT_LT(clock.nowMs - before, 100);
    EXPECT_TRUE(line.wire.endsWith("arp4:4095=99\rare\r"));
}

TEST_F(MemoryTransfers, TheUserIsServedAndMayAbandonThem) {
    const LinkOperation operation = link.gate.Join();
    line.reply = [this](const QString&, const QString&) {
        clock.nowMs += 30;
        return QByteArray();
    };
    int served = 0;
    clock.onWait = [&] { ++served; };
    link.memory.SendArb(kMemory4k);
    EXPECT_GT(served, 50);
    line.wire.clear();
    clock.onWait = [&] { link.gate.Abandon(); };
    link.memory.SendArb(kMemory16k);  // drops its points and ends in order
    EXPECT_EQ(line.wire, "arc16\r<dropped>\rare\r");
    link.memory.ReadArb(kMemory4k);  // asks nothing
    EXPECT_TRUE(line.wire.endsWith("are\r"));
    EXPECT_EQ(memories.ArbMemory4[0], 99);
    EXPECT_TRUE(front.hidden && !desktop.busy && desktop.boxes.isEmpty());
}

}  // namespace
