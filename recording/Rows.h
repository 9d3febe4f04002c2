#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "recording/Cells.h"

namespace recording {

// How the cells of a text are told apart and read.
struct Form {
    char separator = '\0';  // tab, semicolon, comma, "|" or blank; none if each line is one cell
    NumberStyle numbers = {};
};

// The cells of a line as it writes them. A separator in quotes belongs to its cell. Any number of blanks counts as one;
// "|" at either end of a line is a frame. An empty line has no cells.
std::vector<std::string_view> SplitCells(std::string_view line, char separator);

// What the cells of a line mean, one element each.
struct Row {
    std::string codes;  // CellCode
    std::string marks;  // decimal marks, 0 where there is none
    std::vector<double> values;
    // Of all rows so far, one for each change. The value of a stamp with a date is its time of day and as many days as
    // dates stand here before its own, until ResolveStamps makes real days of them.
    std::vector<Date> dates;
};

// The kind of a cell and the base of its unit in one character.
inline char CellCode(CellKind kind, int unit) { return static_cast<char>(static_cast<int>(kind) | unit << 2); }
inline CellKind KindOf(char code) { return static_cast<CellKind>(code & 3); }
inline int UnitOf(char code) { return static_cast<unsigned char>(code) >> 2; }
inline bool HasValue(char code) { return KindOf(code) >= CellKind::Stamp; }

void ReadRow(std::string_view line, const Form& form, Row* row);

}  // namespace recording
