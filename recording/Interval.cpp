#include "recording/Interval.h"

#include <algorithm>
#include <cmath>

namespace recording {
namespace {

constexpr double kHundredth = 0.01;
constexpr std::size_t kShortestPiece = 3;
constexpr double kDay = 86'400.0;

// The greatest distance from the straight line between first and last value, and the smallest step that is none.
struct Steps {
    double greatestOff = 0.0;
    double smallest = 0.0;
    bool standsStill = false;
};

Steps StepsOf(std::span<const double> values) {
    const double step = (values.back() - values.front()) / static_cast<double>(values.size() - 1);
    Steps steps{.smallest = values.back() - values.front()};
    for (std::size_t i = 1; i < values.size(); ++i) {
        const double off = std::fabs(values[i] - values.front() - static_cast<double>(i) * step);
        const double change = values[i] - values[i - 1];
        steps.greatestOff = std::max(steps.greatestOff, off);
        steps.standsStill = steps.standsStill || change == 0.0;
        if (change > 0.0) {
            steps.smallest = std::min(steps.smallest, change);
        }
    }
    return steps;
}

// Times are written with so many digits, so an even one is off its line by up to one step, or by one unit of the last
// digit. With still fewer digits it stands still over many rows.
bool IsEven(std::span<const double> values, const Steps& steps) {
    const double rise = values.back() - values.front();
    const double step = rise / static_cast<double>(values.size() - 1);
    return steps.greatestOff <= std::max(steps.smallest, 0.5 * step) ||
           (steps.standsStill && steps.greatestOff <= kHundredth * rise);
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
    course.isFinite = std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
    if (values.empty() || !course.isFinite) {
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
