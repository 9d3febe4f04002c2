#include "recording/Course.h"

#include <algorithm>
#include <cmath>

#include "recording/Units.h"

namespace recording {
namespace {

constexpr double kHundredth = 0.01;
constexpr std::size_t kShortestPiece = 3;

// The steps from value to value of a rising column.
struct Steps {
    double mean = 0.0;
    double smallest = 0.0;        // above zero
    double greatestOff = 0.0;     // distance of a value from the straight line between the first and the last
    double greatestChange = 0.0;  // of a step, against the mean
    bool standsStill = false;
};

Steps StepsOf(std::span<const double> values) {
    const double step = (values.back() - values.front()) / static_cast<double>(values.size() - 1);
    Steps steps{.mean = step, .smallest = values.back() - values.front()};
    for (std::size_t i = 1; i < values.size(); ++i) {
        const double off = std::fabs(values[i] - values.front() - static_cast<double>(i) * step);
        const double change = values[i] - values[i - 1];
        steps.greatestOff = std::max(steps.greatestOff, off);
        steps.greatestChange = std::max(steps.greatestChange, std::fabs(change - step));
        steps.standsStill = steps.standsStill || change == 0.0;
        if (change > 0.0) {
            steps.smallest = std::min(steps.smallest, change);
        }
    }
    return steps;
}

bool AreMultiples(std::span<const double> values, double unit) {
    return std::ranges::all_of(values, [unit](double value) {
        const double count = value / unit;
        return std::fabs(count - std::round(count)) <= kHundredth;
    });
}

// The values are rounded to some decimal place below the step, and nothing but that takes them off their line: neither
// a value nor a step is off by more than one unit of that place. A gap is a step that is.
bool AreRounded(std::span<const double> values, const Steps& steps) {
    double unit = std::pow(10.0, std::floor(std::log10(steps.mean / 2)));
    for (int places = 0; places < 2; ++places, unit /= 10.0) {
        const double most = unit * (1.0 + kHundredth);
        if (steps.greatestOff > most || steps.greatestChange > most) {
            return false;
        }
        if (AreMultiples(values, unit)) {
            return true;
        }
    }
    return false;
}

// Even values are off their line by a small part of a step, or by what rounding takes them off. With still fewer digits
// they stand still over several rows, and then go on by one unit of the last digit.
bool IsEven(std::span<const double> values, const Steps& steps) {
    constexpr double kSmallPart = 0.05;
    if (steps.standsStill) {
        return steps.greatestOff <= std::max(steps.smallest, steps.mean) * (1.0 + kHundredth);
    }
    return steps.greatestOff <= kSmallPart * steps.mean || AreRounded(values, steps);
}

std::vector<std::size_t> FindRestarts(std::span<const double> values, double range) {
    std::vector<std::size_t> rows;
    std::size_t begin = 0;
    for (std::size_t i = 1; i <= values.size(); ++i) {
        if (i < values.size() && values[i] >= values[i - 1]) {
            continue;
        }
        if (i - begin < kShortestPiece || values[i - 1] <= values[begin]) {
            return {};
        }
        if (i < values.size()) {
            if (std::fabs(values[i] - values.front()) > 5.0 * kHundredth * range) {
                return {};
            }
            rows.push_back(begin = i);
        }
    }
    return rows;
}

}  // namespace

Course CourseOf(std::span<const double> values) {
    Course course;
    if (values.empty() || !std::ranges::all_of(values, [](double value) { return std::isfinite(value); })) {
        return course;
    }
    const auto [lowest, highest] = std::ranges::minmax(values);
    course.lowest = lowest;
    course.highest = highest;
    const double range = highest / 2 - lowest / 2;  // half, as the whole one may be beyond all numbers
    course.rises = values.back() > values.front() && std::ranges::is_sorted(values) && std::isfinite(2 * range);
    if (course.rises) {
        const Steps steps = StepsOf(values);
        course.isEven = IsEven(values, steps);
        course.countsUp = steps.mean == 1.0 && steps.greatestOff == 0.0;
        course.isCoarse = steps.standsStill && steps.smallest > kHundredth * (values.back() - values.front());
    }
    if (!course.rises && range > 0.0) {
        course.restarts = FindRestarts(values, 2 * range);
    }
    return course;
}

bool IsInLine(std::span<const double> values, std::span<const double> times) {
    if (values.size() != times.size() || values.size() < kShortestPiece) {
        return false;
    }
    const double rise = values.back() - values.front();
    const double slope = rise / (times.back() - times.front());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!(std::fabs(values[i] - values.front() - (times[i] - times.front()) * slope) <= kHundredth * rise)) {
            return false;
        }
    }
    return true;
}

void PassMidnights(std::span<double> seconds) {
    double midnight = 0.0;
    double last = 0.0;
    for (double& second : seconds) {
        if (second + midnight < last - kDay / 2) {
            midnight += kDay;
        }
        last = second += midnight;
    }
}

}  // namespace recording
