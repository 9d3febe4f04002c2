#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

// One row of the table of all measurements: a figure beside its floor, which is the same result got by the least that
// can be done, measured in the same run. Ratio = figure / floor, so that it holds on a noisy machine.
struct Figure {
    const char* unit;
    double figure;
    double floor;
};

// Puts a benchmark's row, or, with no `good` result behind it, the word that it failed.
void Put(benchmark::State& state, const Figure& row, bool good);

// Runs the benchmarks that the command line names, all without one. Exit status 1 if one of them failed.
int RunTable(int argc, char** argv);

inline double Milliseconds(const auto& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// The medians of our work and of its floor, taken in turn, so that both meet the same noise. `settle` runs after each
// turn, off the clock.
inline Figure Compare(
    benchmark::State& state, const auto& ours, const auto& floor, const std::function<void()>& settle = [] {}) {
    std::vector<double> oursMs;
    std::vector<double> floorMs;
    for ([[maybe_unused]] auto _ : state) {
        floorMs.push_back(Milliseconds(floor));
        oursMs.push_back(Milliseconds(ours));
        settle();
    }
    return {"ms", Median(oursMs), Median(floorMs)};
}
