#include "simulator/Trace.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace sim {
namespace {

constexpr double kHighestNumber = 255.0;
constexpr double kLeastAmplitude = 1e-12;  // of a full scale of 1; less is what the arithmetic leaves over

// From twice the length on, the mean of the values that fall to a sample: picking single ones would make false waves of
// the fast parts of a recording. Below that, the straight line between the two values nearest to it.
double Resampled(const std::vector<double>& values, std::size_t sample) {
    if (values.size() >= 2 * kTraceSamples) {
        const auto begin = values.begin() + static_cast<std::ptrdiff_t>(sample * values.size() / kTraceSamples);
        const auto end = values.begin() + static_cast<std::ptrdiff_t>((sample + 1) * values.size() / kTraceSamples);
        return std::accumulate(begin, end, 0.0) / static_cast<double>(end - begin);
    }
    const double place = static_cast<double>(sample * (values.size() - 1)) / (kTraceSamples - 1);
    const std::size_t before = std::min(static_cast<std::size_t>(place), values.size() - 2);
    return std::lerp(values[before], values[before + 1], place - static_cast<double>(before));
}

// To -1..1, so that no sum or difference of great values overflows.
void Normalise(std::vector<double>& values) {
    double greatest = 0.0;
    for (const double value : values) {
        greatest = std::max(greatest, std::fabs(value));
    }
    for (double& value : values) {
        value = greatest > 0.0 ? value / greatest : 0.0;
    }
}

}  // namespace

Trace MakeTrace(std::vector<double> values) {
    Normalise(values);
    std::array<double, kTraceSamples> samples{};
    for (std::size_t i = 0; i < kTraceSamples; ++i) {
        samples[i] = Resampled(values, i);
    }
    const auto [low, high] = std::ranges::minmax(samples);
    Trace trace{};
    if (high - low > kLeastAmplitude) {
        for (std::size_t i = 0; i < kTraceSamples; ++i) {
            trace[i] = static_cast<int>(std::lround((samples[i] - low) / (high - low) * kHighestNumber));
        }
    }
    return trace;
}

}  // namespace sim
