#include <cmath>

#include "LinkBench.h"

namespace {

constexpr int kOneMsBaud = 11000;  // a character takes a millisecond

struct Paced {
    const char* what;
    TransferResult (MemoryTransfer::*transfer)(const MemorySize&);
    const MemorySize& size;
    int characterMs;  // of the line, which may be faster or slower than its rate
    qsizetype portHolds;
    int paceMs;
    int zeros;  // samples, before the long values begin
};

struct TransferPaces : LinkBench {
    void Fill(const MemorySize& size, int zeros) {
        const std::span<qint16> samples = size.samples(program.memories);
        std::fill(samples.begin(), samples.begin() + zeros, qint16{0});
        std::fill(samples.begin() + zeros, samples.end(), qint16{-2047});
        line.reply = [samples](const QString& command, const QString&) { return PointReply(command, samples); };
    }

    // The share by which the worst estimate behind the first 5 % is wrong.
    double WorstError(const Paced& paced) {
        program.preferences.ComBaudRate = kOneMsBaud;
        ConnectSilently();
        Fill(paced.size, paced.zeros);
        line.characterMs = paced.characterMs;
        line.portHolds = paced.portHolds;
        line.restMs = 1;
        state.PaceDelayMs = paced.paceMs;
        QList<std::pair<qint64, qint64>> estimates;  // now, time left
        clock.onWait = [&] {
            const TransferProgress progress = link.memory.Progress();
            EXPECT_TRUE(progress.leftMs || progress.percent < 5) << paced.what;
            if (progress.percent >= 5) {
                estimates += {clock.nowMs, progress.leftMs.value_or(0)};
            }
        };
        EXPECT_EQ((link.memory.*paced.transfer)(paced.size).end, TransferResult::End::Whole) << paced.what;
        double worst = 0.0;
        for (const auto& [nowMs, leftMs] : estimates) {
            const auto trueMs = static_cast<double>(clock.nowMs - nowMs);
            const double error = std::fabs(static_cast<double>(leftMs) - trueMs) / trueMs;
            worst = trueMs > 1000.0 ? std::max(worst, error) : worst;
        }
        EXPECT_GT(estimates.size(), 100) << paced.what;
        EXPECT_EQ(link.memory.Progress().percent, 100) << paced.what;
        return worst;
    }
};

TEST_F(TransferPaces, TheTimeLeftIsRightWithinATenthFromFivePercentOn) {
    for (const Paced& paced : std::initializer_list<Paced>{
             {"a port far ahead of the line", &MemoryTransfer::SendArb, kMemory4k, 1, 20'480, 5, 2000},
             {"a large memory, a small port", &MemoryTransfer::SendArb, kMemory16k, 1, 1024, 5, 9000},
             {"a port that takes all at once", &MemoryTransfer::SendArb, kMemory4k, 1, 1'000'000, 5, 0},
             {"a slow line", &MemoryTransfer::CompareArb, kMemory16k, 1, 1024, 5, 9000},
             {"an instrument slower than its line", &MemoryTransfer::CompareArb, kMemory4k, 2, 1024, 5, 2000},
             {"a fast line, where the pacing counts", &MemoryTransfer::CompareArb, kMemory16k, 1, 1024, 100, 9000},
             {"a far end that needs no line time", &MemoryTransfer::CompareArb, kMemory16k, 0, 1024, 5, 9000},
             {"a read of long values", &MemoryTransfer::ReadArb, kMemory4k, 1, 1024, 5, 0},
             {"a read of zeros", &MemoryTransfer::ReadArb, kMemory16k, 1, 1024, 5, 16'385}}) {
        EXPECT_LT(WorstError(paced), 0.1) << paced.what;
    }
}

// A stop leaves points in the port: the line is free when it has carried those.
TEST_F(TransferPaces, BehindAStopTheTimeLeftIsThatOfThePointsOnTheirWay) {
    program.preferences.ComBaudRate = kOneMsBaud;
    ConnectSilently();
    line.characterMs = 1;
    line.portHolds = 20'480;
    int looks = 0;
    clock.onWait = [&] {
        const TransferProgress progress = link.memory.Progress();
        if (progress.percent >= 20 && !link.memory.Stop() && line.LineTimeLeftMs() > 1000) {
            ++looks;
            const auto trueMs = static_cast<double>(line.LineTimeLeftMs());
            EXPECT_NEAR(static_cast<double>(progress.leftMs.value_or(0)), trueMs, 0.1 * trueMs);
        }
    };
    EXPECT_EQ(link.memory.SendArb(kMemory4k).end, TransferResult::End::Stopped);
    EXPECT_GT(looks, 100);
}

}  // namespace
