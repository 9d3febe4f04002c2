#pragma once

#include <array>
#include <optional>
#include <string>

#include "simulator/Trace.h"

namespace sim {

// What a user has chosen of a recording in a file. Empty texts and 0 leave it to what the file tells.
struct RecordingChoice {
    std::string path = {};
    std::string columns = {};    // numbers from 1 or titles, one or two with a comma between them
    std::string separator = {};  // "tab", "semicolon", "comma", "bar" or "blank"
    std::string decimal = {};    // "point" or "comma"
    std::size_t block = 0;       // from 1
};

struct RecordedTraces {
    std::array<Trace, 2> channels{};
    std::array<std::string, 2> origins;  // where each comes from, for the user
};

// The traces of two channels; one column alone serves both. Where they stand side by side both have the rows that both
// fill. Nothing, with a sentence for the user in `error`, if the file gives no recordings.
std::optional<RecordedTraces> LoadTraces(const RecordingChoice& choice, std::string* error);

}  // namespace sim
