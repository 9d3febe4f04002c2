#pragma once

#include <QString>
#include <optional>
#include <string>

// Why a formula gives no samples, in words for the user, and its place in what was typed.
struct FormulaFault {
    QString text;          // a sentence
    qsizetype at = -1;     // the first character of the place, from 0; -1 if the fault has no place
    qsizetype length = 0;  // of the place; 0 at the end of the formula
};

// A formula as the parser reads it: "." marks decimals, "," separates arguments. It has as many characters as the one
// that was typed, so that a place in it is the same place there. Empty with a fault.
struct PlainFormula {
    std::string text;
    std::optional<FormulaFault> fault;
};

inline constexpr qsizetype kLongestFormula = 1000;  // characters

// Arguments are separated by ";" or ",". A comma between two digits is a decimal mark if the formula has a ";", else a
// separator if it has a "."; with neither it is a fault that shows both readings.
PlainFormula ToPlainFormula(const QString& typed);
