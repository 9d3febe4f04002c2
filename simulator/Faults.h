#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <string>

namespace sim {

// What is wrong with the instrument or its line. Counts run from the moment at which the faults are set; a default
// one is a sound instrument.
struct Faults {
    std::optional<unsigned> muteAfterQueries = {};  // this many queries are still answered, then none
    std::chrono::milliseconds byteDelay{0};         // extra time before each byte of a reply
    std::optional<std::size_t> cutReplyBytes = {};  // a reply ends after this many bytes, without its CR
    bool endlessReply = false;                      // a reply goes on with filler and never gets its CR
    bool loneCr = false;                            // every reply is a CR alone
    std::set<std::string> loneCrOn = {};            // queries answered by a CR alone
    std::set<std::string> silentOn = {};            // queries not answered at all
    bool lowerCaseStatus = false;                   // the answer to "sta?" comes in lower case
    bool garbledNumbers = false;                    // text stands ahead of the number of a reply
    std::optional<unsigned> vanishAfterLines = {};  // this many lines are served, the next one makes the device vanish
    std::chrono::milliseconds stall{0};             // for this long the line is not read ...
    std::chrono::milliseconds stallEvery{0};        // ... each time this has gone by; 0: once, at once
};

}  // namespace sim
