#pragma once

#include <string>
#include <vector>

#include "simulator/Options.h"

namespace sim {

struct ProgramOptions {
    Options instrument;
    bool log = false;
    bool help = false;
};

// Reads the program's arguments (without its name). False, with a sentence for the user in `error`, for an unknown
// option, a missing or superfluous value, and a number outside its bounds.
bool ParseCommandLine(const std::vector<std::string>& arguments, ProgramOptions* options, std::string* error);

// The text of --help: one line for each option.
std::string HelpText();

}  // namespace sim
