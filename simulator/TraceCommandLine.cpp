#include "simulator/TraceCommandLine.h"

#include "simulator/OptionKinds.h"
#include "simulator/TraceShapes.h"

namespace sim {
namespace {

constexpr std::array<const char*, 2> kDefaultShapes{"sine", "burst"};

void AddRecording(CLI::App& app, TraceProgramOptions& options) {
    RecordingChoice& recording = options.recording;
    CLI::Option* const csv = AddText(app, "--csv", recording.path, "serve a recording in place of the shapes");
    csv->check(kNotEmpty)->type_name("FILE");
    AddText(app, "--columns", recording.columns,
            "the columns of channel A and B, numbers from 1 or titles; one alone serves both")
        ->check(kNotEmpty)
        ->needs(csv)
        ->type_name("A,B");
    app.add_option("--block", recording.block, "the block of numbers, from 1, where the file has several")
        ->check(CLI::Range(1, 1'000'000))
        ->needs(csv)
        ->type_name("N");
    AddText(app, "--separator", recording.separator, "what separates the cells: tab, semicolon, comma, bar or blank")
        ->check(CLI::IsMember({"tab", "semicolon", "comma", "bar", "blank"}))
        ->needs(csv)
        ->type_name("NAME");
    AddText(app, "--decimal", recording.decimal, "the decimal mark: point or comma")
        ->check(CLI::IsMember({"point", "comma"}))
        ->needs(csv)
        ->type_name("NAME");
    const CLI::Validator isShape([](std::string& name) { return TraceShape(name) ? "" : "no shape " + name; }, "");
    for (const auto& [name, shape, channel] :
         {std::tuple("--shape-a", &options.shapes[0], "A"), std::tuple("--shape-b", &options.shapes[1], "B")}) {
        app.add_option(name, *shape, std::string("the trace of channel ") + channel)
            ->check(isShape)
            ->excludes(csv)
            ->type_name("NAME");
    }
}

void AddFaults(CLI::App& app, TraceFaults& faults) {
    const CLI::IsMember isStep({"initiate", "execute", "request"});
    AddRepeatable(app, "--silent-on", faults.silentOn,
                  "do not answer initiate, execute or request; may be given several times")
        ->check(isStep)
        ->type_name("STEP");
    AddRepeatable(app, "--hang-up-on", faults.hangUpOn, "cut the connection there")->check(isStep)->type_name("STEP");
    AddRepeatable(app, "--nonsense-on", faults.nonsenseOn, "answer with a line that is no answer")
        ->check(isStep)
        ->type_name("STEP");
    AddMilliseconds(app, "--delay", faults.delay, "wait before each answer");
    AddMilliseconds(app, "--byte-delay", faults.byteDelay, "wait before each byte of an answer");
    AddCount(app, "--short", faults.shortReply, "reply with N numbers only");
    AddSwitch(app, "--empty", faults.emptyReply, "reply without a number");
    AddSwitch(app, "--no-number", faults.noNumber, "put a word in place of a number into the middle of each reply");
    AddSwitch(app, "--beyond-16-bits", faults.beyond16Bits, "put 40000 into the middle of each reply");
    AddSwitch(app, "--endless", faults.endlessReply, "reply with megabytes of digits");
}

}  // namespace

std::optional<int> ReadCommandLine(int argc, const char* const* argv, TraceProgramOptions* options) {
    CLI::App app;
    SetUp(app);
    app.description("Serves the traces of two channels as QD204 does, until it is ended.");
    AddRecording(app, *options);
    AddText(app, "--name", options->source.socket, "another name or path for the local socket qd204e")
        ->check(kNotEmpty)
        ->type_name("NAME");
    AddFaults(app, options->source.faults);
    app.footer("Shapes: " + TraceShapeNames() +
               ".\n"
               "A recording is delimited text with numbers, as oscilloscopes, loggers and programs save it. What "
               "separates its\n"
               "cells, its titles, units, time and sample interval are found in the file; --columns, --block, "
               "--separator and\n"
               "--decimal choose otherwise. A gap within a recording is refused. Any number of samples is brought to "
               "2048, and\n"
               "their lowest and highest to 1 and 32767.");
    return Parse(app, argc, argv);
}

bool LoadChannels(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error) {
    if (!options->recording.path.empty()) {
        const std::optional<RecordedTraces> traces = LoadTraces(options->recording, error);
        if (traces) {
            options->source.channels = traces->channels;
            *origins = traces->origins;
        }
        return traces.has_value();
    }
    for (std::size_t channel = 0; channel < kDefaultShapes.size(); ++channel) {
        (*origins)[channel] = options->shapes[channel].value_or(kDefaultShapes[channel]);
        options->source.channels[channel] = TraceShape((*origins)[channel]).value_or(Trace{});
    }
    return true;
}

}  // namespace sim
