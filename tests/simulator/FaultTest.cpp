#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "simulator/FaultGate.h"

namespace {

using namespace std::chrono_literals;
using sim::FaultGate;
using sim::Faults;

TEST(FaultGate, ShapesReplies) {
    struct Row {
        const char* name;
        Faults faults;
        std::string query, reply, expected;
        bool endless = false;
    };
    const std::vector<Row> table{
        {"cut", {.cutReplyBytes = 2}, "frq?", "1.5", "1."},
        {"endless", {.endlessReply = true}, "frq?", "1.5", "1.5", true},
        {"lone CR", {.loneCr = true}, "ID?", "KL5276", "\r"},
        {"lone CR on the query", {.loneCrOn = {"VER?", "ID?"}}, "ID?", "KL5276", "\r"},
        {"silent on the query", {.silentOn = {"VER?"}}, "VER?", "V1", ""},
        {"lower-case status", {.lowerCaseStatus = true}, "sta?", "SIN GT+", "sin gt+\r"},
        {"lower case is for the status alone", {.lowerCaseStatus = true}, "ID?", "KL5276", "KL5276\r"},
        {"garbled number", {.garbledNumbers = true}, "frq?", "1.5", "VALUE 1.5\r"},
        {"garbled sample", {.garbledNumbers = true}, "arp4:1=?", "arp4:1=-5", "arp4:1=VALUE -5\r"}};
    for (const Row& row : table) {
        FaultGate gate;
        gate.Set(row.faults, {});
        const sim::ShapedReply shaped = gate.Shape(row.query, row.reply);
        EXPECT_EQ(shaped.bytes, row.expected) << row.name;
        EXPECT_EQ(shaped.endless, row.endless) << row.name;
    }
}

TEST(FaultGate, CountsFromTheMomentOfSetting) {
    FaultGate gate;
    gate.Shape("ID?", "x");
    EXPECT_FALSE(gate.VanishesAtLine());
    gate.Set({.muteAfterQueries = 2, .vanishAfterLines = 1}, {});
    EXPECT_EQ(gate.Shape("ID?", "x").bytes, "x\r");
    EXPECT_EQ(gate.Shape("ID?", "x").bytes, "x\r");
    EXPECT_EQ(gate.Shape("ID?", "x").bytes, "");
    EXPECT_FALSE(gate.VanishesAtLine());
    EXPECT_TRUE(gate.VanishesAtLine());
    gate.Set({}, {});
    EXPECT_EQ(gate.Shape("ID?", "x").bytes, "x\r");
    EXPECT_FALSE(gate.VanishesAtLine());
}

}  // namespace
