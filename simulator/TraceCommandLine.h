#pragma once

#include <array>
#include <optional>
#include <string>

#include "simulator/TraceOptions.h"
#include "simulator/TraceRecording.h"

namespace sim {

struct TraceProgramOptions {
    TraceOptions source;  // all but the channels
    std::array<std::optional<std::string>, 2> shapes;
    RecordingChoice recording;  // without a path: the shapes
};

// Fills `options` from the arguments. The status to end with after a request for help or a usage that is not taken,
// which has been told; nothing if the program is to run.
std::optional<int> ReadCommandLine(int argc, const char* const* argv, TraceProgramOptions* options);

// Fills in the channels from the file or the shapes; `origins` tells the user what each serves. False, with a sentence
// for the user in `error`, if the file gives no recordings.
bool LoadChannels(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error);

}  // namespace sim
