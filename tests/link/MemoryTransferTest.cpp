#include "LinkBench.h"

namespace {

struct MemoryTransfer_ : LinkBench {
    MemoryTransfer_() {
        ConnectSilently();
        line.reply = [](const QString& command, const QString&) -> QByteArray {
            return command.endsWith(u'?') ? command.chopped(1).toLatin1() + "-12=3\r" : QByteArray();
        };
    }
    ArbMemories& memories = program.memories;
};

TEST_F(MemoryTransfer_, WritesEveryPointBetweenItsTwoCommands) {
    memories.ArbMemory4.fill(7);
    memories.ArbMemory16.fill(-5);
    struct Case {
        void (MemoryTransfer::*send)();
        qsizetype lines;
        const char *first, *second, *last, *transfer;
        QList<int> lastSteps;
    };
    const Case cases[] = {{&MemoryTransfer::SendArb4,
                           4098,
                           "arc4",
                           "arp4:0=7",
                           "arp4:4095=7",
                           "Please wait. Send 4095 Values|4095",
                           {4000, 4050}},
                          {&MemoryTransfer::SendArb16,
                           16387,
                           "arc16",
                           "arp16:0=-5",
                           "arp16:16384=-5",
                           "Please wait. Send 16384 Values|16384",
                           {16200, 16300}}};
    for (const Case& c : cases) {
        line.wire.clear();
        front.progress.clear();
        (link.memory.*c.send)();
        const QStringList lines = line.Lines();
        ASSERT_EQ(lines.size(), c.lines);
        EXPECT_EQ(lines.at(0), QLatin1StringView(c.first));
        EXPECT_EQ(lines.at(1), QLatin1StringView(c.second));
        EXPECT_EQ(lines.at(c.lines - 2), QLatin1StringView(c.last));
        EXPECT_EQ(lines.constLast(), u"are");
        EXPECT_EQ(front.transfer, QLatin1StringView(c.transfer));
        EXPECT_EQ(front.progress.last(2), c.lastSteps);
    }
    EXPECT_EQ(clock.waitedMs, 20);  // only the four framing commands are paced
    EXPECT_TRUE(front.hidden && !desktop.busy);
}

TEST_F(MemoryTransfer_, ReadsWhatStandsBehindTheFirstEqualsSign) {
    memories.ArbMemory4.fill(99);
    line.replies = {{QStringLiteral("arp4:1=?"), "2047\r"},
                    {QStringLiteral("arp4:2=?"), "x=101.5\r"},
                    {QStringLiteral("arp4:3=?"), "x=40000\r"},
                    {QStringLiteral("arp4:4=?"), "x=y\r"}};
    link.memory.ReadArb4();
    EXPECT_EQ(line.Lines().size(), 4096);
    EXPECT_EQ(front.transfer, u"Please wait. Read 4096 Values|4095");
    const qint16 wanted[] = {-12, 2047, 102, 99, 0, -12};
    for (std::size_t address = 0; address < std::size(wanted); ++address) {
        EXPECT_EQ(memories.ArbMemory4[address], wanted[address]) << address;
    }
    EXPECT_EQ(memories.ArbMemory4[4095], -12);
    EXPECT_EQ(memories.ArbMemory4[4096], 99);
    link.memory.ReadArb16();
    EXPECT_EQ(line.Lines().constLast(), u"arp16:16384=?");
    EXPECT_EQ(memories.ArbMemory16[16384], -12);
}

TEST_F(MemoryTransfer_, ATimeOutFillsTheRestFromTheCollectedText) {
    memories.ArbMemory4.fill(99);
    line.replies[QStringLiteral("arp4:100=?")] = "arp4:100=4";
    link.memory.ReadArb4();
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"arp4:100=?")));
    EXPECT_EQ(line.Lines().size(), 101);
    EXPECT_EQ(memories.ArbMemory4[99], -12);
    EXPECT_EQ(memories.ArbMemory4[100], 4);
    EXPECT_EQ(memories.ArbMemory4[4095], 4);
    EXPECT_EQ(front.progress.constLast(), 4050);
    EXPECT_TRUE(front.hidden);
}

TEST_F(MemoryTransfer_, EndsBehindTheCurrentPointWhenAbandoned) {
    const LinkOperation operation(link.gate);
    line.lineTimeMs = 10;
    clock.onWait = [this] {
        if (line.Lines().size() >= 150) {
            link.gate.Abandon();
        }
    };
    link.memory.SendArb16();
    EXPECT_EQ(line.Lines().size(), 203);  // arc16, points 0 to 200, are
    EXPECT_EQ(line.Lines().constLast(), u"are");
    memories.ArbMemory4.fill(99);
    link.memory.ReadArb4();  // abandoned already
    EXPECT_EQ(memories.ArbMemory4[0], 99);
}

}  // namespace
