#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "PanelEnd.h"
#include "simulator/SimulatedInstrument.h"

namespace {

using namespace std::chrono_literals;
using sim_test::kPatience;
using sim_test::PanelEnd;

TEST(RealTime, BytesTakeTheirTimeAtTheRateThatThePanelHasSet) {
    struct Row {
        speed_t speed;
        int baud;
        int bytes;
    };
    sim::SimulatedInstrument instrument({.realTime = true});
    std::string error;
    ASSERT_TRUE(instrument.Start(&error)) << error;
    const PanelEnd panel(instrument.DevicePath());
    for (const Row& row : {Row{B4800, 4800, 100}, Row{B115200, 115200, 3000}}) {
        panel.SetLine(row.speed);
        instrument.ClearLog();
        const auto start = std::chrono::steady_clock::now();
        for (int sent = 0; sent < row.bytes; sent += 5) {
            panel.Write("xxxx\r");
        }
        EXPECT_EQ(panel.Ask("ID?"), "KL5276-2\r");
        const auto taken = std::chrono::steady_clock::now() - start;
        const auto lineTime = (row.bytes + 4 + 9) * 11 * std::chrono::nanoseconds(1s) / row.baud;
        EXPECT_GE(taken, lineTime - 1us) << row.baud;  // each byte time is rounded down to whole nanoseconds
        EXPECT_LT(taken, lineTime + kPatience) << row.baud;
    }
}

}  // namespace
