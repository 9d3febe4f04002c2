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
}

TEST_F(MemoryTransfers, ReadsWhatStandsBehindTheFirstEqualsSign) {
    line.replies = {{QStringLiteral("arp4:1=?"), "2047\r"},
                    {QStringLiteral("arp4:2=?"), "x=101.5\r"},
                    {QStringLiteral("arp4:3=?"), "x=40000\r"},
                    {QStringLiteral("arp4:4=?"), "x=y\r"},
                    {QStringLiteral("arp4:5=?"), "x=-" + QByteArray(400, '1') + '\r'},
                    {QStringLiteral("arp4:6=?"), "x=1e999\r"}};
    link.memory.ReadArb(kMemory4k);
    EXPECT_EQ(line.Lines().size(), 4096);
    EXPECT_EQ(front.transfer, u"Please wait. Read 4096 Values|4095");
    const qint16 wanted[] = {-12, 2047, 102, 99, 0, 99, 99, -12};
    EXPECT_TRUE(std::equal(std::begin(wanted), std::end(wanted), memories.ArbMemory4.begin()));
    EXPECT_EQ(memories.ArbMemory4[4095], -12);
    EXPECT_EQ(memories.ArbMemory4[4096], 99);
    link.memory.ReadArb(kMemory16k);
    EXPECT_EQ(line.Lines().constLast(), u"arp16:16384=?");
    EXPECT_EQ(memories.ArbMemory16[16384], -12);
}

TEST_F(MemoryTransfers, ATimeOutFillsTheRestFromTheCollectedText) {
    line.replies[QStringLiteral("arp4:100=?")] = "arp4:100=4";
    link.memory.ReadArb(kMemory4k);
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"arp4:100=?")));
    EXPECT_EQ(line.Lines().size(), 101);
    EXPECT_EQ(memories.ArbMemory4[99], -12);
    EXPECT_EQ(memories.ArbMemory4[100], 4);
    EXPECT_EQ(memories.ArbMemory4[4095], 4);
    EXPECT_EQ(front.progress.constLast(), 4050);
    EXPECT_TRUE(front.hidden);
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

TEST_F(MemoryTransfers, AnAbandonedSendDropsItsPointsAndEndsInOrder) {
    const LinkOperation operation = link.gate.Join();
    clock.onWait = [&] { link.gate.Abandon(); };
    link.memory.SendArb(kMemory16k);
    EXPECT_EQ(line.wire, "arc16\r<dropped>\rare\r");
    EXPECT_TRUE(front.hidden && !desktop.busy);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(MemoryTransfers, AnAbandonedReadAsksNoFurther) {
    const LinkOperation operation = link.gate.Join();
    link.gate.Abandon();
    link.memory.ReadArb(kMemory4k);
    EXPECT_TRUE(line.wire.isEmpty());
    EXPECT_EQ(memories.ArbMemory4[0], 99);
}

}  // namespace
