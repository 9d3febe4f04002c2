#include <gtest/gtest.h>

#include "platform/LineLoad.h"

namespace {

constexpr qint64 kSecond = 1'000'000;
constexpr qint64 kPerSecond = 400;  // characters of 11 bits at 4400 baud

struct LineLoads : ::testing::Test {
    LineLoads() { line.Opened(4400); }
    LineLoad line;
};

TEST_F(LineLoads, CountsWhatThePortTookAtTheRateOfTheLine) {
    line.Taken(2 * kPerSecond, 5 * kSecond);
    line.Taken(kPerSecond, 6 * kSecond);
    EXPECT_EQ(line.LeftUs(6 * kSecond), 2 * kSecond);
    EXPECT_EQ(line.LeftUs(9 * kSecond), 0);
    line.Taken(kPerSecond, 20 * kSecond);  // the idle time between does not count
    EXPECT_EQ(line.LeftUs(20 * kSecond), kSecond);
    line.Answered(20 * kSecond);
    EXPECT_EQ(line.LeftUs(20 * kSecond), 0);
}

TEST_F(LineLoads, APortThatTookMoreThanAnyDriverHoldsNeedsNoLineTime) {
    const qint64 heldByAPseudoTerminal = 20'480;
    line.Taken(heldByAPseudoTerminal, 0);
    EXPECT_EQ(line.LeftUs(0), heldByAPseudoTerminal * kSecond / kPerSecond);
    line.Taken(13'000, 0);
    EXPECT_EQ(line.LeftUs(0), 0);
    line.Taken(heldByAPseudoTerminal, 60 * kSecond);  // also behind an answer: it stays as fast as it is
    EXPECT_EQ(line.LeftUs(60 * kSecond), 0);
    line.Opened(4400);  // what is behind the port now is another matter
    line.Taken(kPerSecond, 0);
    EXPECT_EQ(line.LeftUs(0), kSecond);
}

TEST_F(LineLoads, BelievesADriverThatTellsWhatItHolds) {
    line.DriverHolds(0, 0);  // as one that never tells
    line.Taken(20 * kPerSecond, 0);
    line.DriverHolds(0, 0);
    EXPECT_EQ(line.LeftUs(0), 20 * kSecond);
    line.DriverHolds(4 * kPerSecond, 0);
    EXPECT_EQ(line.LeftUs(0), (4 * kPerSecond + 1024) * kSecond / kPerSecond);  // and what an adapter may hold
    line.DriverHolds(0, 0);
    EXPECT_EQ(line.LeftUs(0), 1024 * kSecond / kPerSecond);
    line.Taken(1, 3 * kSecond);
    line.DriverHolds(2 * kPerSecond, 3 * kSecond);
    EXPECT_EQ(line.LeftUs(3 * kSecond), 2 * kSecond);  // the line is slower than its rate
    line.Taken(200'000, 3 * kSecond);
    EXPECT_GT(line.LeftUs(3 * kSecond), 100 * kSecond);  // a large driver is no fast far end
    line.Dropped(4 * kSecond);
    EXPECT_EQ(line.LeftUs(4 * kSecond), 1024 * kSecond / kPerSecond);
}

TEST_F(LineLoads, HasStalledWhenNothingMovesForThreeSeconds) {
    line.Taken(100, 0);
    line.AllTaken();
    line.Refused(10 * kSecond);  // the three seconds begin here
    line.Refused(13 * kSecond - 1);
    EXPECT_FALSE(line.Stalled());
    line.Taken(1, 13 * kSecond - 1);
    line.Refused(16 * kSecond - 2);
    EXPECT_FALSE(line.Stalled());
    line.Refused(16 * kSecond - 1);
    EXPECT_TRUE(line.Stalled());
    EXPECT_EQ(line.LeftUs(16 * kSecond), 0);
    line.Taken(1, 20 * kSecond);
    EXPECT_FALSE(line.Stalled());

    // A full driver takes nothing while the line works on it.
    line.DriverHolds(4000, 20 * kSecond);
    line.DriverHolds(3999, 22 * kSecond);
    line.Refused(24 * kSecond);
    EXPECT_FALSE(line.Stalled());
    line.DriverHolds(3999, 25 * kSecond);
    EXPECT_TRUE(line.Stalled());
}

}  // namespace
