#include "recording/Resample.h"

#include <algorithm>
#include <cmath>

namespace recording {
namespace {

constexpr double kLeastAmplitude = 1e-12;  // of the greatest value

// A curve of straight lines through the values. Its points are asked for from left to right.
class Curve {
  public:
    Curve(std::span<const double> values, std::span<const double> times) : values_(values), times_(times) {}

    double Begin() const { return TimeOf(0); }
    double End() const { return TimeOf(values_.size() - 1); }

    double At(double time) {
        GoTo(time);
        const double from = TimeOf(row_);
        const double to = TimeOf(row_ + 1);
        const double part = to > from ? std::clamp((time - from) / (to - from), 0.0, 1.0) : 1.0;
        return std::lerp(values_[row_], values_[row_ + 1], part);
    }

    // The mean from one time to a later one.
    double Mean(double from, double to) {
        if (!(to > from)) {
            return At(from);
        }
        double sum = 0.0;
        double last = At(from);
        double at = from;
        const auto add = [&](double time, double value) {
            const double share = (time - at) / (to - from);
            sum += share * (last / 2) + share * (value / 2);
            at = time;
            last = value;
        };
        for (std::size_t next = row_ + 1; next < values_.size() && TimeOf(next) <= to; ++next) {
            add(TimeOf(next), values_[next]);
        }
        add(to, At(to));
        return sum;
    }

  private:
    double TimeOf(std::size_t row) const { return times_.empty() ? static_cast<double>(row) : times_[row]; }

    void GoTo(double time) {
        while (row_ + 2 < values_.size() && TimeOf(row_ + 1) <= time) {
            ++row_;
        }
    }

    const std::span<const double> values_;
    const std::span<const double> times_;
    std::size_t row_ = 0;
};

// Each address has the mean of the values that fall to it; one that falls to two counts for both, by its share.
std::vector<double> Means(std::span<const double> values, std::size_t addresses) {
    std::vector<double> means(addresses);
    const double share = static_cast<double>(values.size()) / static_cast<double>(addresses);
    for (std::size_t i = 0; i < addresses; ++i) {
        const double from = static_cast<double>(i) * share;
        const double to = std::min(static_cast<double>(i + 1) * share, static_cast<double>(values.size()));
        for (auto row = static_cast<std::size_t>(from); row < values.size() && static_cast<double>(row) < to; ++row) {
            const double begin = std::max(from, static_cast<double>(row));
            const double end = std::min(to, static_cast<double>(row + 1));
            means[i] += values[row] * ((end - begin) / (to - from));
        }
    }
    return means;
}

}  // namespace

std::vector<double> Resample(std::span<const double> values, std::span<const double> times, std::size_t addresses) {
    if (values.size() == 1) {
        return std::vector<double>(addresses, values.front());
    }
    const bool takesMeans = values.size() > addresses;
    if (takesMeans && times.empty()) {
        return Means(values, addresses);
    }
    Curve curve(values, times);
    std::vector<double> samples(addresses);
    const double steps = static_cast<double>(takesMeans ? addresses : std::max<std::size_t>(addresses - 1, 1));
    for (std::size_t i = 0; i < addresses; ++i) {
        const double at = std::lerp(curve.Begin(), curve.End(), static_cast<double>(i) / steps);
        samples[i] = takesMeans
                         ? curve.Mean(at, std::lerp(curve.Begin(), curve.End(), static_cast<double>(i + 1) / steps))
                         : curve.At(at);
    }
    return samples;
}

double Lasting(std::size_t values, bool even, std::size_t addresses) {
    const auto stretched = [](std::size_t count) {
        return static_cast<double>(count) / static_cast<double>(std::max<std::size_t>(count, 2) - 1);
    };
    if (values > addresses) {
        return even ? stretched(values) : 1.0;
    }
    return stretched(addresses);
}

std::vector<double> Spread(std::span<const double> values, double low, double high) {
    if (values.empty()) {
        return {};
    }
    const auto [lowest, highest] = std::ranges::minmax(values);
    // Halves, as the whole distance may be beyond all numbers.
    const double range = highest / 2 - lowest / 2;
    if (range <= kLeastAmplitude * std::max(std::fabs(lowest), std::fabs(highest))) {
        return {};
    }
    std::vector<double> spread(values.size());
    std::ranges::transform(values, spread.begin(), [&, lowest = lowest](double value) {
        return std::lerp(low, high, (value / 2 - lowest / 2) / range);
    });
    return spread;
}

}  // namespace recording
