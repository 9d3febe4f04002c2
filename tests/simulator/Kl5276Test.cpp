#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "simulator/Kl5276.h"
#include "simulator/SimulatedInstrument.h"

namespace {

using sim::Kl5276;

// Takes commands with blanks between them.
void TakeAll(Kl5276& unit, const std::string& commands) {
    std::istringstream words(commands);
    for (std::string text; words >> text;) {
        EXPECT_FALSE(unit.Take(text).has_value()) << text;
    }
}

TEST(Kl5276, AnswersWithTheValuesItHoldsWithinTheirBounds) {
    // commands, a query and its reply
    const std::string table[] = {
        "ID? KL5276-2", "ami:101 amt? 100", "amp:0.0 amp? 0.0200", "swt:0.00 swt? 0.01", "amp:21.0 amp? 20.0000",
        "ph1:360.0 ph1? 359.9", "amx:30 ami amt? 30", "vrms amp:8.0 amp? 7.0700", "amp:2.0 vrms amp? 0.7071",
        "frq:00012345.6789 frq? 12345.6789", "frq:20000000.0000 frq? 15000000.0000", "ofs:0.3 ofs:0 OFS? 0",
        "amp:0.2 ofs:0.5 OFS? 5.0000", "amp:0.205 ofs:-4 OFS? -4.0000", "vrms amp:0.07 ofs:0.05 OFS? 5.0000",
        "vrms amp:0.071 ofs:0.05 OFS? 0.5000",
        // The floor that goes ahead of an RMS level lies in a smaller range: the offset outlives it.
        "amp:0.07 ofs:0.3 vrms amp:0.5 OFS? 3.0000"};
    for (const std::string& texts : table) {
        Kl5276 unit;
        const std::size_t mark = texts.find('?');
        const std::size_t query = texts.rfind(' ', mark) + 1;
        TakeAll(unit, texts.substr(0, query));
        EXPECT_EQ(unit.Take(texts.substr(query, mark + 1 - query)), texts.substr(mark + 2)) << texts;
        EXPECT_EQ(unit.state.ignoredTexts, 0U) << texts;
    }
}

TEST(Kl5276, StatusLineTellsEverySwitch) {
    const std::string start = "SIN CTM SW0 RFI AM0 SK0 VPP OT0";
    // the token that stands at the start, and one by one what each command brings in its place
    const std::pair<const char*, std::string> table[] = {
        {"SIN", "sqr=SQR tri=TRI rmp=RMP rmn=RMN arb4=AR4 arb16=A16 noise=WNS pink=PNK sin=SIN"},
        {"CTM", "gtm+=GT+ gtm-=GT- trm+=TR+ trm-=TR- ctm=CTM"},
        {"SW0", "sw1=SL1 SW0=SW0 log=SW0 sw1=SL2 SW0=SW0"},
        {"RFI", "rfx=RFX rfi=RFI"},
        {"AM0", "amx=AMX ami=AMI am0=AM0"},
        {"SK0", "psk1=PS1 psk0=SK0 fsk1=FS1 fsk0=SK0"},
        {"VPP", "vrms=RMS vpp=VPP"},
        {"OT0", "OT1=OT1 OT0=OT0"}};
    for (const auto& [from, steps] : table) {
        Kl5276 unit;
        std::istringstream words(steps);
        for (std::string step; words >> step;) {
            const std::size_t mark = step.rfind('=');
            TakeAll(unit, step.substr(0, mark));
            std::string expected = start;
            EXPECT_EQ(unit.Take("sta?"), expected.replace(expected.find(from), 3, step.substr(mark + 1))) << step;
        }
    }
}

TEST(Kl5276, IgnoresAndCountsWhatItDoesNotKnow) {
    const std::vector<std::string> texts{
        "",           "id?",        "OT2",        "ot1",       "frq:",          "frq:1,5",      "frq:1 ",
        "frq:nan",    "time:24,00", "time:09.30", "time:9,30", "date:32,01,25", "date:01,01",   "arp4:0",
        "arp4:0=1.5", "arp4:-1=?",  "tim",        "FRQ?",      "arp4:4096=?",   "arp16:16385=?"};
    Kl5276 unit;
    for (const std::string& text : texts) {
        EXPECT_FALSE(unit.Take(text).has_value()) << text;
    }
    EXPECT_EQ(unit.state.ignoredTexts, texts.size());
    EXPECT_EQ(unit.Take("frq?"), "1000.0000");
    EXPECT_EQ(unit.Take("arp4:0=?"), "arp4:0=0");
}

TEST(Kl5276, MemoryWritesCountOnlyWhileThatMemoryIsOpen) {
    Kl5276 unit;
    TakeAll(unit,
            "arp4:5=1 arc4 arp4:0=-2047 arp4:4095=2047 arp4:7=-5 arp4:8=3000 arp16:7=9 are arp4:7=6 "
            "arc16 arp16:16384=-2048 arp16:1=12 arp4:1=3 are");
    EXPECT_EQ(unit.state.ignoredTexts, 4U);
    for (const char* const reply : {"arp4:5=0", "arp4:0=-2047", "arp4:4095=2047", "arp4:7=-5", "arp4:8=2047",
                                    "arp16:7=0", "arp16:1=12", "arp4:1=0", "arp16:16384=-2047"}) {
        const std::string point(reply, std::string(reply).find('=') + 1);
        EXPECT_EQ(unit.Take(point + '?'), reply);
    }
}

// A killed instrument leaves its link behind; anything else at that place is the user's.
TEST(SimulatedInstruments, TakeOverALinkAndNoFile) {
    std::string folder = testing::TempDir() + "linkXXXXXX";
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    const std::string link = folder + "/new/com2";
    for (const char* const former : {"", "/dev/pts/99999", "/nowhere", "/dev/null"}) {
        if (*former != '\0') {
            std::filesystem::create_symlink(former, link);
        }
        sim::SimulatedInstrument instrument(sim::Options{.linkPath = link});
        std::string error;
        EXPECT_EQ(instrument.Start(&error), former != std::string("/dev/null")) << former << error;
        EXPECT_EQ(std::filesystem::read_symlink(link), error.empty() ? instrument.DevicePath() : former);
        instrument.Stop();
        EXPECT_EQ(std::filesystem::is_symlink(link), !error.empty());
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
