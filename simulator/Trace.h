#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace sim {

inline constexpr std::size_t kTraceSamples = 2048;
inline constexpr int kLowestNumber = 1;
inline constexpr int kHighestNumber = 32767;

// What is served for one channel. No number is 0, which the panel would take for the end of a short reply; a trace
// without amplitude is 0 throughout.
using Trace = std::array<int, kTraceSamples>;

// A recording of two finite values or more, brought to the length of a trace and scaled so that its lowest value is
// kLowestNumber and its highest kHighestNumber. `times`: one for each value where they do not follow each other evenly,
// else empty. A recording without amplitude becomes 0 throughout, which a panel takes for a line at zero; it could not
// scale any other constant.
Trace MakeTrace(std::span<const double> values, std::span<const double> times = {});

}  // namespace sim
