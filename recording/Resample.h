#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace recording {

// Brings values, one at least, to so many addresses, one at least: by straight lines, and by means where there are more
// values than addresses, so that fast parts make no false waves. `times`: one for each value, never falling, if the
// values do not follow each other evenly; else empty.
//
// With straight lines the first address has the first value and the last one the last; the addresses then last,
// together, n / (n - 1) of the time from the first value to the last. With means each address has the mean of its
// share.
std::vector<double> Resample(std::span<const double> values, std::span<const double> times, std::size_t addresses);

// How long the addresses last together, as a multiple of the time from the first value to the last. `even`: the values
// follow each other evenly. Two values at least.
double Lasting(std::size_t values, bool even, std::size_t addresses);

// Spreads values so that the lowest becomes `low` and the highest `high`, exactly. Empty if all values
// are equal, apart from rounding.
std::vector<double> Spread(std::span<const double> values, double low, double high);

}  // namespace recording
