#pragma once

#include <QtGlobal>
#include <algorithm>

#include "core/Numbers.h"

// A sample is -kHighestSample to kHighestSample.
inline constexpr int kHighestSample = 2047;

// The nearest sample that the instrument can play.
inline qint16 HeldSample(double value) {
    constexpr double kHighest = kHighestSample;
    return static_cast<qint16>(NearestEven(std::clamp(value, -kHighest, kHighest)));
}
