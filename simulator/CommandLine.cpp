#include "simulator/CommandLine.h"

#include <algorithm>
#include <string_view>

#include "simulator/OptionTable.h"

namespace sim {
namespace {

using std::string_view;

bool SetStall(Faults& faults, string_view text) {
    const std::size_t comma = text.find(',');
    return comma != string_view::npos && SetMilliseconds(faults.stall, text.substr(0, comma)) &&
           SetMilliseconds(faults.stallEvery, text.substr(comma + 1));
}

bool SetRate(int& rate, string_view text) {
    return SetNumber(rate, text, kInstrumentRatesBaud.back()) &&
           std::ranges::find(kInstrumentRatesBaud, rate) != kInstrumentRatesBaud.end();
}

using Program = ProgramOptions;
using Text = string_view;
constexpr auto kOptions = std::to_array<Option<Program>>({
    {"--link", "PATH", "make a symbolic link to the device; it goes when the program ends",
     [](Program& p, Text t) { return !(p.instrument.linkPath = t).empty(); }},
    {"--rate", "BAUD", "understand one rate only: 4800, 9600, 19200, 38400 or 115200; answer noise at others",
     [](Program& p, Text t) { return SetRate(p.instrument.rate, t); }},
    {"--silent-off-rate", "", "say nothing instead of noise at other rates",
     [](Program& p, Text) { return p.instrument.silentOffRate = true; }},
    {"--real-time", "", "let every byte take its time at the rate of the line",
     [](Program& p, Text) { return p.instrument.realTime = true; }},
    {"--log", "", "print what goes over the line, with the time in seconds since the start",
     [](Program& p, Text) { return p.log = true; }},
    {"--model", "TEXT", "the answer to ID?", [](Program& p, Text t) { return p.instrument.model = t, true; }},
    {"--version-text", "TEXT", "the answer to VER?",
     [](Program& p, Text t) { return p.instrument.versionText = t, true; }},
    {"--mute-after", "N", "answer N queries and no more",
     [](Program& p, Text t) { return SetCount(p.instrument.faults.muteAfterQueries, t); }},
    {"--byte-delay", "MS", "wait before each byte of a reply",
     [](Program& p, Text t) { return SetMilliseconds(p.instrument.faults.byteDelay, t); }},
    {"--cut-reply", "N", "end each reply after N bytes, without its CR",
     [](Program& p, Text t) { return SetCount(p.instrument.faults.cutReplyBytes, t); }},
    {"--endless", "", "never close a reply and go on sending",
     [](Program& p, Text) { return p.instrument.faults.endlessReply = true; }},
    {"--lone-cr", "", "answer every query with a CR alone",
     [](Program& p, Text) { return p.instrument.faults.loneCr = true; }},
    {"--lone-cr-on", "QUERY", "answer this query with a CR alone; may be given several times",
     [](Program& p, Text t) { return p.instrument.faults.loneCrOn.emplace(t), true; }},
    {"--silent-on", "QUERY", "do not answer this query; may be given several times",
     [](Program& p, Text t) { return p.instrument.faults.silentOn.emplace(t), true; }},
    {"--lower-status", "", "answer sta? in lower case",
     [](Program& p, Text) { return p.instrument.faults.lowerCaseStatus = true; }},
    {"--garble", "", "put text ahead of the number of each reply",
     [](Program& p, Text) { return p.instrument.faults.garbledNumbers = true; }},
    {"--vanish-after", "N", "serve N lines, then take the device away",
     [](Program& p, Text t) { return SetCount(p.instrument.faults.vanishAfterLines, t); }},
    {"--stall", "MS,EVERY_MS", "stop reading the line for MS each EVERY_MS; with 0 once, at once",
     [](Program& p, Text t) { return SetStall(p.instrument.faults, t); }},
    {"--help", "", "print this text", [](Program& p, Text) { return p.help = true; }},
});

}  // namespace

bool ParseCommandLine(const std::vector<std::string>& arguments, ProgramOptions* options, std::string* error) {
    return ParseOptions(kOptions, arguments, options, error);
}

std::string HelpText() {
    return "Usage: kl5276-sim [OPTION]...\n"
           "Simulates a KL5276 on a pseudo-terminal and prints the path of its device.\n"
           "SIGUSR1 takes the device away, the next SIGUSR1 brings it back.\n\n" +
           OptionLines(kOptions);
}

}  // namespace sim
