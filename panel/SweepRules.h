#pragma once

#include "core/Numbers.h"

// Bounds of the sweep time in s, both inclusive.
inline constexpr double kShortestSweepS = 0.01;
inline constexpr double kLongestSweepS = 40.0;

struct HeldSweepTime {
    double seconds;
    QString message;  // empty while the entry was within the bounds
};

HeldSweepTime HoldSweepTime(double entry, const UserNumbers& numbers);
