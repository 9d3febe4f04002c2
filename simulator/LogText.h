#pragma once

#include <chrono>
#include <string>

#include "simulator/Options.h"

namespace sim {

// One line of text for an entry, without a line feed: seconds since `start`, "rx" for what came from the panel or
// "tx", the bytes with those that are not printable as "<CR>", "<LF>" or "<xx>" in hexadecimal, and a remark if the
// instrument did not understand them.
std::string LogText(const LogEntry& entry, std::chrono::steady_clock::time_point start);

}  // namespace sim
