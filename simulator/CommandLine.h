#pragma once

#include "simulator/Options.h"

namespace CLI {
class App;
}

namespace sim {

struct ProgramOptions {
    Options instrument;
    bool log = false;
};

// Gives the program its options; a parse puts them into `options`, which must outlive it.
void AddOptions(CLI::App& app, ProgramOptions& options);

}  // namespace sim
