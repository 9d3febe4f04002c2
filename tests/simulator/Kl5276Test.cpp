#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/Kl5276.h"

namespace {

using sim::Kl5276;

void TakeAll(Kl5276& unit, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        EXPECT_FALSE(unit.Take(text).has_value()) << text;
    }
}

struct Exchange {
    std::vector<std::string> commands;
    std::string query;
    std::string reply;
};

void ExpectReplies(const std::vector<Exchange>& table) {
    for (const Exchange& row : table) {
        Kl5276 unit;
        TakeAll(unit, row.commands);
        EXPECT_EQ(unit.Take(row.query), row.reply) << testing::PrintToString(row.commands);
        EXPECT_EQ(unit.state.ignoredTexts, 0U) << testing::PrintToString(row.commands);
    }
}

TEST(Kl5276, AnswersWithTheValuesItHolds) {
    ExpectReplies({{{}, "ID?", "KL5276-2"},
                   {{}, "frq?", "1000.0000"},
                   {{"frq:00012345.6789"}, "frq?", "12345.6789"},
                   {{"frq:20000000.0000"}, "frq?", "15000000.0000"},
                   {{"stt:0.0001"}, "stt?", "0.0001"},
                   {{"swt:0.00"}, "swt?", "0.01"},
                   {{"swt:41.00"}, "swt?", "40.00"},
                   {{"fk1:00000700.0000"}, "fk1?", "700.0000"},
                   {{"ph1:360.0"}, "ph1?", "359.9"},
                   {{"amx:30"}, "amt?", "30"},
                   {{"ami:101"}, "amt?", "100"},
                   {{"amx:30", "ami"}, "amt?", "30"}});
}

TEST(Kl5276, LevelIsInTheUnitInForceAndEndsAsTheLastCommandSays) {
    ExpectReplies({{{"amp:0.21", "ofs:0", "vpp", "amp:1.5"}, "amp?", "1.5000"},
                   {{"vrms", "amp:0.21", "ofs:0", "vpp", "amp:1.5"}, "amp?", "1.5000"},
                   {{"amp:0.71", "ofs:0", "vrms", "amp:2.5"}, "amp?", "2.5000"},
                   {{"amp:0.0"}, "amp?", "0.0200"},
                   {{"amp:21.0"}, "amp?", "20.0000"},
                   {{"vrms", "amp:8.0"}, "amp?", "7.0700"},
                   {{"amp:2.0", "vrms"}, "amp?", "0.7071"},
                   {{"vrms", "amp:1.0", "vpp"}, "amp?", "2.8284"}});
}

TEST(Kl5276, OffsetIsScaledAndLimitedByTheRangeOfTheLevel) {
    ExpectReplies({{{"amp:0.2", "ofs:0.0457"}, "OFS?", "4.5700"},
                   {{"amp:0.2", "ofs:0.5"}, "OFS?", "5.0000"},
                   {{"amp:0.21", "ofs:-0.25"}, "OFS?", "-2.5000"},
                   {{"amp:0.205", "ofs:-4"}, "OFS?", "-4.0000"},
                   {{"amp:2.01", "ofs:9"}, "OFS?", "5.0000"},
                   {{"vrms", "amp:0.07", "ofs:0.05"}, "OFS?", "5.0000"},
                   {{"vrms", "amp:0.071", "ofs:0.05"}, "OFS?", "0.5000"},
                   {{"ofs:0.3", "ofs:0"}, "OFS?", "0"},
                   // The floor that goes ahead of an RMS level may lie in a smaller range; the offset must outlive it.
                   {{"amp:0.07", "ofs:0.3000", "vrms", "amp:0.5"}, "OFS?", "3.0000"}});
}

TEST(Kl5276, StatusLineTellsEverySwitch) {
    const std::string start = "SIN CTM SW0 RFI AM0 SK0 VPP OT0";
    ExpectReplies({{{}, "sta?", start}});
    struct Row {
        std::vector<std::string> commands;
        std::string from, to;
    };
    const std::vector<Row> table{
        {{"sqr"}, "SIN", "SQR"},          {{"tri"}, "SIN", "TRI"},          {{"rmp"}, "SIN", "RMP"},
        {{"rmn"}, "SIN", "RMN"},          {{"arb4"}, "SIN", "AR4"},         {{"arb16"}, "SIN", "A16"},
        {{"noise"}, "SIN", "WNS"},        {{"pink"}, "SIN", "PNK"},         {{"pink", "sin"}, "SIN", "SIN"},
        {{"gtm+"}, "CTM", "GT+"},         {{"gtm-"}, "CTM", "GT-"},         {{"trm+"}, "CTM", "TR+"},
        {{"trm-"}, "CTM", "TR-"},         {{"trm-", "ctm"}, "CTM", "CTM"},  {{"lin", "sw1"}, "SW0", "SL1"},
        {{"log", "sw1"}, "SW0", "SL2"},   {{"log"}, "SW0", "SW0"},          {{"log", "sw1", "SW0"}, "SW0", "SW0"},
        {{"rfx"}, "RFI", "RFX"},          {{"rfx", "rfi"}, "RFI", "RFI"},   {{"amx"}, "AM0", "AMX"},
        {{"ami"}, "AM0", "AMI"},          {{"ami", "am0"}, "AM0", "AM0"},   {{"amx:50"}, "AM0", "AM0"},
        {{"psk1"}, "SK0", "PS1"},         {{"fsk1"}, "SK0", "FS1"},         {{"psk1", "fsk0"}, "SK0", "PS1"},
        {{"fsk1", "psk0"}, "SK0", "FS1"}, {{"fsk1", "fsk0"}, "SK0", "SK0"}, {{"psk1", "psk0"}, "SK0", "SK0"},
        {{"vrms"}, "VPP", "RMS"},         {{"vrms", "vpp"}, "VPP", "VPP"},  {{"OT1"}, "OT0", "OT1"},
        {{"OT1", "OT0"}, "OT0", "OT0"}};
    for (const Row& row : table) {
        std::string expected = start;
        expected.replace(expected.find(row.from), 3, row.to);
        ExpectReplies({{row.commands, "sta?", expected}});
    }
}

TEST(Kl5276, IgnoresAndCountsWhatItDoesNotKnow) {
    const std::vector<std::string> texts{
        "",           "id?",           "OT2",           "SIN",         "ot1",           "SW1",       "sw0",
        "frq:",       "frq:1,5",       "frq:abc",       "frq:1 ",      "frq:nan",       "amp:0.5\n", "time:9,30",
        "time:24,00", "date:32,01,25", "date:01,13,25", "arp4:4096=?", "arp16:16385=?", "arp4:-1=?", "arp4:0",
        "arp4:0=1",   "arp4:=?",       "arp4:0=1.5",    "FRQ?",        "frq? ",         "time:",     "tim"};
    Kl5276 unit;
    TakeAll(unit, texts);
    EXPECT_EQ(unit.state.ignoredTexts, texts.size());
    EXPECT_EQ(unit.Take("frq?"), "1000.0000");
    EXPECT_EQ(unit.Take("arp4:0=?"), "arp4:0=0");
}

TEST(Kl5276, MemoryWritesCountOnlyWhileThatMemoryIsOpen) {
    Kl5276 unit;
    TakeAll(unit, {"arp4:5=1", "arc4", "arp4:0=-2047", "arp4:4095=2047", "arp4:7=-5", "arp4:8=3000", "arp16:7=9", "are",
                   "arp4:7=6", "arc16", "arp16:16384=-2048", "arp16:1=12", "arp4:1=3", "are"});
    EXPECT_EQ(unit.state.ignoredTexts, 4U);
    const std::vector<Exchange> table{
        {{}, "arp4:5=?", "arp4:5=0"},    {{}, "arp4:0=?", "arp4:0=-2047"}, {{}, "arp4:4095=?", "arp4:4095=2047"},
        {{}, "arp4:7=?", "arp4:7=-5"},   {{}, "arp4:8=?", "arp4:8=2047"},  {{}, "arp16:7=?", "arp16:7=0"},
        {{}, "arp16:1=?", "arp16:1=12"}, {{}, "arp4:1=?", "arp4:1=0"},     {{}, "arp16:16384=?", "arp16:16384=-2047"}};
    for (const Exchange& row : table) {
        EXPECT_EQ(unit.Take(row.query), row.reply);
    }
}

}  // namespace
