#include "LinkBench.h"

namespace {

struct MemoryTransfers : LinkBench {
    MemoryTransfers() {
        ConnectSilently();
        memories.ArbMemory4.fill(99);
    }

    ArbMemories& memories = program.memories;
};

TEST_F(MemoryTransfers, StaysInSightUntilTheLineHasCarriedTheLastPoint) {
    const LinkOperation operation = link.gate.Join();
    line.lineFreeMs = 60'000;
    qint64 shownUntilMs = 0;
    clock.onWait = [&] { shownUntilMs = front.hidden || !desktop.busy ? shownUntilMs : clock.nowMs; };
    link.memory.SendArb(kMemory4k);
    EXPECT_EQ(shownUntilMs, line.lineFreeMs);
    EXPECT_EQ(front.progress.constLast(), 4050);
    EXPECT_TRUE(front.hidden);
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
    EXPECT_TRUE(front.hidden);
    EXPECT_FALSE(desktop.busy);
    EXPECT_EQ(desktop.boxes, QStringList());
}

}  // namespace
