#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <string>

#include "simulator/Trace.h"

namespace sim {

// What is wrong with a trace source. Messages are named by their first word: initiate, execute, request.
struct TraceFaults {
    std::set<std::string> silentOn = {};         // messages that get no answer
    std::set<std::string> hangUpOn = {};         // messages at which the connection is cut
    std::set<std::string> nonsenseOn = {};       // messages answered by a line that is no answer
    std::chrono::milliseconds delay{0};          // ahead of each answer
    std::chrono::milliseconds byteDelay{0};      // ahead of each byte of an answer
    std::optional<std::size_t> shortReply = {};  // this many numbers in place of a whole trace
    bool emptyReply = false;                     // no number at all
    bool noNumber = false;                       // a word in place of a number in the middle
    bool beyond16Bits = false;                   // 40000 in the middle
    bool endlessReply = false;                   // digits, megabytes of them
};

// How a trace source is set up before it starts.
struct TraceOptions {
    std::string socket = "qd204e";  // name of the local socket, or its path
    std::array<Trace, 2> channels{};
    TraceFaults faults = {};
};

}  // namespace sim
