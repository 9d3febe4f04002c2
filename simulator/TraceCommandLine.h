#pragma once

#include <array>
#include <optional>
#include <string>

#include "simulator/TraceOptions.h"
#include "simulator/TraceRecording.h"

namespace CLI {
class App;
}

namespace sim {

struct TraceProgramOptions {
    TraceOptions source;  // all but the channels
    std::array<std::optional<std::string>, 2> shapes;
    RecordingChoice recording;  // without a path: the shapes
};

// Gives the program its options; a parse puts them into `options`, which must outlive it.
void AddOptions(CLI::App& app, TraceProgramOptions& options);

// Fills in the channels from the file or the shapes; `origins` tells the user what each serves. False, with a sentence
// for the user in `error`, if the file gives no recordings.
bool LoadChannels(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error);

}  // namespace sim
