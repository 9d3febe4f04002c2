#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// A recording in one column of a CSV file.
struct CsvColumn {
    int number = 0;             // from 1
    std::size_t firstLine = 0;  // of the file, from 1
    std::size_t lastLine = 0;
    std::vector<double> values = {};  // two at least
};

// Reads two channels from the text of a CSV file.
//
// `columns`: the columns of the channels, from 1; one alone serves both. With none, the columns that are numbers
// throughout are taken, from the left, without a leading one that only rises: the time, or an index and the time.
//
// A line that begins with a word, in the columns of the samples, belongs to a header or to closing remarks. A gap in a
// recording is refused: leaving it out would shift in time what stands behind it. Both channels end where the shorter
// one does. False, with a sentence for the user in `error`, if there is no such pair of recordings.
bool ReadCsv(std::string_view text, std::span<const int> columns, std::array<CsvColumn, 2>* channels,
             std::string* error);

}  // namespace sim
