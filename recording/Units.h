#pragma once

#include <QString>
#include <optional>
#include <string_view>

namespace recording {

constexpr double kDay = 86'400.0;  // s

// A unit of the bench, without its prefix.
struct Unit {
    int base = 0;        // which one; 0 is none: a bare number, or one with a prefix alone
    double scale = 1.0;  // 0.001 for "mV"
};

// What "V", "mV", "volts", "us", "milliseconds", "MSa/s" or "%" means. Nothing for a text that is no unit of the bench,
// nor for "MS" and "Ms", which may be milliseconds or anything else.
std::optional<Unit> ReadUnit(std::string_view text);

// The same behind a number in a cell, where a prefix may stand alone: "20m", "3k".
std::optional<Unit> ReadCellUnit(std::string_view text);

// The symbol of a base: "V", "s"; empty for none.
QString UnitSymbol(int base);

bool IsSeconds(const Unit& unit);
bool IsHertz(const Unit& unit);
bool IsSampleRate(const Unit& unit);

// A value with the prefix that suits it, three to six digits: "4 ns", "1.25 MHz". For zero and without a unit no
// prefix.
QString WithPrefix(double value, const QString& unit);

}  // namespace recording
