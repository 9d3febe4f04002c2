#pragma once

#include <optional>
#include <string_view>

namespace recording {

// Of ASCII only.
inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }

enum class CellKind : unsigned char {
    Missing,  // empty, "--", "NaN", "Null", or 9.9E37, by which instruments mark a sample that they do not have
    Word,
    Stamp,  // a date or a time of day; its value is in seconds since midnight, NaN without a whole date
    Number
};

// How a number is read that may be meant in two ways, as "1,234".
struct NumberStyle {
    char decimalMark = '.';
    bool byUser = false;  // numbers with the other mark are then none
};

// What a stamp holds, in the place of the unit of a number.
enum StampForm : unsigned char {
    kDate = 1,
    kClock = 2,
    kDateAndClock = 3,
    kTwoParts = 4  // "12:30", hours and minutes or minutes and seconds
};

// The three parts of a date as they are written; which is the year, the month and the day the other dates may tell.
struct Date {
    int first = 0;  // 0 if there is no whole date
    int second = 0;
    int third = 0;
    bool hasPoints = false;  // between the parts: the day is the first

    bool operator==(const Date&) const = default;
};

struct Cell {
    CellKind kind = CellKind::Missing;
    int unit = 0;            // base of the unit behind a number (Units.h), in which its value is; or a StampForm
    char mark = 0;           // the decimal mark, also one that follows from marks between thousands; 0 without any
    bool isUnclear = false;  // the mark could as well separate thousands
    double value = 0.0;
    Date date = {};  // of a stamp
};

// What the text of a cell means, without blanks at either end; quotes around it count for nothing. Numbers may have a
// decimal point or comma, marks between thousands, an exponent, and a unit behind them.
Cell ReadCell(std::string_view text, const NumberStyle& style);

std::string_view Trimmed(std::string_view text);

// Without blanks, and without the quotes around it.
std::string_view Content(std::string_view cell);

// True for 9.9E37 and its neighbours for both overflows.
bool IsHoleValue(double value);

// The time of day, or the date, that a cell holds (Stamps.cpp).
std::optional<Cell> ReadStamp(std::string_view text);

}  // namespace recording
