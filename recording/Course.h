#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace recording {

// How the values of a column run, in the order of the rows.
struct Course {
    double lowest = 0.0;
    double highest = 0.0;
    bool rises = false;  // never falls, and ends above its start; a time of few digits stands still now and then
    bool isEven = false;
    bool countsUp = false;              // by one from row to row
    bool isCoarse = false;              // has so few digits that its steps cannot be told
    std::vector<std::size_t> restarts;  // the rows at which it begins again where it began, if it else rises
};

// All zero and false if there are no values, or one is not finite.
Course CourseOf(std::span<const double> values);

// True if `values` are on one straight line over `times`, within a hundredth of their rise.
bool IsInLine(std::span<const double> values, std::span<const double> times);

// Seconds since midnight become seconds since the first midnight.
void PassMidnights(std::span<double> seconds);

}  // namespace recording
