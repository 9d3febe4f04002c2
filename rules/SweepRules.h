#pragma once

#include "core/Numbers.h"
#include "rules/Held.h"

// Bounds of the sweep time in s, both inclusive.
inline constexpr double kShortestSweepS = 0.01;
inline constexpr double kLongestSweepS = 40.0;

// A sweep time in s, held within the bounds.
Held HoldSweepTime(double entry, const UserNumbers& numbers);
