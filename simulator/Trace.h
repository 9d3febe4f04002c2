#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace sim {

inline constexpr std::size_t kTraceSamples = 2048;

// What is served for one channel: numbers from 0 to 255.
using Trace = std::array<int, kTraceSamples>;

// A recording of at least two finite values, brought to the length of a trace and scaled so that its lowest value
// becomes 0 and its highest 255. A recording without amplitude becomes 0 throughout, which a panel takes for a line at
// zero; it could not scale any other constant.
Trace MakeTrace(std::vector<double> values);

}  // namespace sim
