#include "simulator/CommandLine.h"

#include <vector>

#include "simulator/OptionKinds.h"

namespace sim {
namespace {

void AddStall(CLI::App& app, Faults& faults) {
    app.add_option_function<std::vector<int>>(
           "--stall",
           [&faults](const std::vector<int>& ms) {
               faults.stall = std::chrono::milliseconds(ms.front());
               faults.stallEvery = std::chrono::milliseconds(ms.back());
           },
           "stop reading the line for MS each EVERY_MS; with 0 once, at once")
        ->delimiter(',')
        ->expected(2)
        ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
        ->check(kUpToAnHourMs)
        ->type_name("MS,EVERY_MS");
}

void AddFaults(CLI::App& app, Faults& faults) {
    AddCount(app, "--mute-after", faults.muteAfterQueries, "answer N queries and no more");
    AddMilliseconds(app, "--byte-delay", faults.byteDelay, "wait before each byte of a reply");
    AddCount(app, "--cut-reply", faults.cutReplyBytes, "end each reply after N bytes, without its CR");
    AddSwitch(app, "--endless", faults.endlessReply, "never close a reply and go on sending");
    AddSwitch(app, "--lone-cr", faults.loneCr, "answer every query with a CR alone");
    AddRepeatable(app, "--lone-cr-on", faults.loneCrOn, "answer this query with a CR alone; may be given several times")
        ->type_name("QUERY");
    AddRepeatable(app, "--silent-on", faults.silentOn, "do not answer this query; may be given several times")
        ->type_name("QUERY");
    AddSwitch(app, "--lower-status", faults.lowerCaseStatus, "answer sta? in lower case");
    AddSwitch(app, "--garble", faults.garbledNumbers, "put text ahead of the number of each reply");
    AddCount(app, "--vanish-after", faults.vanishAfterLines, "serve N lines, then take the device away");
    AddStall(app, faults);
}

}  // namespace

std::optional<int> ReadCommandLine(int argc, const char* const* argv, ProgramOptions* options) {
    Options& instrument = options->instrument;
    CLI::App app;
    SetUp(app);
    app.description(
        "Simulates a KL5276 on a pseudo-terminal and prints the path of its device.\n"
        "SIGUSR1 takes the device away, the next SIGUSR1 brings it back.");
    AddText(app, "--link", instrument.linkPath,
            "make a symbolic link to the device, and its folder; the link goes when the program ends")
        ->check(kNotEmpty)
        ->type_name("PATH");
    app.add_option("--rate", instrument.rate, "understand one rate only; answer noise at others")
        ->check(CLI::IsMember(std::vector<int>(kInstrumentRatesBaud.begin(), kInstrumentRatesBaud.end())))
        ->type_name("BAUD");
    AddSwitch(app, "--silent-off-rate", instrument.silentOffRate, "say nothing instead of noise at other rates");
    AddSwitch(app, "--real-time", instrument.realTime, "let every byte take its time at the rate of the line");
    AddSwitch(app, "--log", options->log, "print what goes over the line, with the time in seconds since the start");
    AddText(app, "--model", instrument.model, "the answer to ID?");
    AddText(app, "--version-text", instrument.versionText, "the answer to VER?");
    AddFaults(app, instrument.faults);
    return Parse(app, argc, argv);
}

}  // namespace sim
