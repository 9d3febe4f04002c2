#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

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

// Our work and its floor in turn, so that both meet the same noise; "ratio" is that of the medians. Settle runs
// behind each turn, off the clock.
inline void Compare(
    benchmark::State& state, const auto& ours, const auto& floor, const std::function<void()>& settle = [] {}) {
    std::vector<double> oursMs;
    std::vector<double> floorMs;
    for ([[maybe_unused]] auto _ : state) {
        floorMs.push_back(Milliseconds(floor));
        oursMs.push_back(Milliseconds(ours));
        state.SetIterationTime(oursMs.back() / 1000.0);
        settle();
    }
    state.counters["median_ms"] = Median(oursMs);
    state.counters["least_ms"] = *std::min_element(oursMs.begin(), oursMs.end());
    state.counters["floor_ms"] = Median(floorMs);
    state.counters["ratio"] = Median(oursMs) / Median(floorMs);
}
