#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/Trace.h"

namespace sim {

// A built-in trace by its name; nothing for a name that is none.
std::optional<Trace> TraceShape(std::string_view name);

// All names, for the help.
std::string TraceShapeNames();

}  // namespace sim
