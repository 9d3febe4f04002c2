#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cmath>

#include "core/ArbMemory.h"
#include "core/Numbers.h"

// Clicks lie in a band that is higher than the samples. Their values, and those of a line between two of them, are
// -kHighestClick to kHighestClick.
inline constexpr int kHighestClick = 2060;

// The nearest sample that the instrument can play, a half going to the even one. As NearestEven, without its call: this
// is done for every address.
inline qint16 HeldSample(double value) {
    constexpr double kHighest = kHighestSample;
    return static_cast<qint16>(std::lrint(std::clamp(value, -kHighest, kHighest)));
}

// A position of the pointer as an address or a value.
inline qint16 Nearest(double value) { return static_cast<qint16>(NearestEven(value)); }
