#include "simulator/Trace.h"

#include <algorithm>
#include <cmath>

#include "recording/Resample.h"

namespace sim {

Trace MakeTrace(std::span<const double> values, std::span<const double> times) {
    const std::vector<double> samples = recording::Resample(values, times, kTraceSamples);
    const std::vector<double> numbers = recording::Spread(samples, kLowestNumber, kHighestNumber);
    Trace trace{};
    std::ranges::transform(numbers, trace.begin(), [](double number) { return static_cast<int>(std::lround(number)); });
    return trace;
}

}  // namespace sim
