#pragma once

#include <optional>
#include <string_view>

namespace recording {

enum class CellKind : unsigned char {
    Missing,  // empty, "--", "NaN", "Null", or 9.9E37, by which instruments mark a sample that they do not have
    Word,
    Stamp,  // a date or a time of day; its value is in seconds since midnight, NaN for a date alone
    Number
};

// How a number is read that may be meant in two ways, as "1,234".
struct NumberStyle {
    char decimalMark = '.';
    bool byUser = false;  // numbers with the other mark are then none
};

struct Cell {
    CellKind kind = CellKind::Missing;
    int unit = 0;            // base of the unit behind the number (Units.h); the value is in that base
    char mark = 0;           // the decimal mark, also one that follows from marks between thousands; 0 without any
    bool isUnclear = false;  // the mark could as well part thousands
    double value = 0.0;
};

// What the text of a cell means, without blanks at either end; quotes around it count for nothing. Numbers may have a
// decimal point or comma, marks between thousands, an exponent, and a unit behind them.
Cell ReadCell(std::string_view text, const NumberStyle& style);

std::string_view Trimmed(std::string_view text);

// Without blanks, and without the quotes around it.
std::string_view Content(std::string_view cell);

// True for 9.9E37 and its neighbours for both overflows.
bool IsHoleValue(double value);

// The time of day, or the date, that a cell holds.
std::optional<Cell> ReadStamp(std::string_view text);

}  // namespace recording
