#pragma once

#include <QString>
#include <optional>

#include "core/Numbers.h"

// Numbers as they are written in a shell: "2.5MHz", "1,2Vpp", "-100m", "50%". The same in every country: "." and ","
// are both the decimal mark, and nothing separates thousands. The unit may be left out, and a prefix may stand alone.

enum class Quantity { Frequency, Level, Voltage, Depth, Phase, Time };

struct Value {
    double number = 0.0;           // in Hz, V, percent, degrees or s; finite
    std::optional<bool> vpp = {};  // of a level: the unit that was named, Vpp or Vrms
};

// Nothing, with a sentence in `fault` that says what to write, for a text that is no such value.
std::optional<Value> ReadValue(const QString& text, Quantity quantity, QString& fault);

// The same value for ReadValue, with a prefix where it has one, to 12 digits: "2.5MHz". `vpp`: the unit of a level.
QString ValueText(double number, Quantity quantity, bool vpp);

// Numbers with a point, for texts and the link.
const UserNumbers& PlainNumbers();
