#pragma once

#include <optional>

#include "simulator/Options.h"

namespace sim {

struct ProgramOptions {
    Options instrument;
    bool log = false;
};

// Fills `options` from the arguments. The status to end with after a request for help or a usage that is not taken,
// which has been told; nothing if the program is to run.
std::optional<int> ReadCommandLine(int argc, const char* const* argv, ProgramOptions* options);

}  // namespace sim
