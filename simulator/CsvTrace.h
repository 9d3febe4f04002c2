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

// Reads two channels from the text of a CSV file. Cells are parted by tab, semicolon or comma and may stand in quotes;
// a number has a decimal point, or a comma in cells that commas do not part.
//
// `columns`: the columns of the channels, from 1; one alone serves both. With none, the columns that are numbers
// throughout are taken, from the left, without a leading one that only rises: the time.
//
// A column ends with its last number. Lines ahead of its first number are a header, and so is everything down to a line
// among the first 100 that begins with a word. A gap between numbers is refused: leaving it out would shift in time
// what stands behind it. False, with a sentence for the user in `error`, if there is no such pair of recordings.
bool ReadCsv(std::string_view text, std::span<const int> columns, std::array<CsvColumn, 2>* channels,
             std::string* error);

}  // namespace sim
