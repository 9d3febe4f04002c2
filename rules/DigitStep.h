#pragma once

#include <QString>
#include <optional>

// Steps at one digit of a number as an entry field shows it: digits with one decimal mark, "." or ",", and a minus. A
// digit is named by its power of ten: 0 for the units, -1 for the tenths.

// The digit left of the cursor; without a cursor, or with no digit left of it, the first that is not 0, or else the
// units. None if the text is no such number.
std::optional<int> DigitAt(const QString& number, std::optional<qsizetype> cursor);

// The number with `steps` added at that digit, with carry and borrow, and with as many decimals as it had.
QString StepDigit(const QString& number, int power, int steps);

// Where the cursor stands right behind that digit, or at the nearest place.
qsizetype CursorBehind(const QString& number, int power);
