#include "waveform/FormulaFunctions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace {

double Fraction(double x) { return x - std::floor(x); }

double Sinc(double x) {
    const double angle = std::numbers::pi * x;
    return angle == 0.0 ? 1.0 : std::sin(angle) / angle;
}

double Square(double x) { return Fraction(x) < 0.5 ? 1.0 : -1.0; }

double Pulse(double x, double duty) { return Fraction(x) < duty ? 1.0 : 0.0; }

double Tri(double x) { return 4.0 * std::fabs(Fraction(x - 0.25) - 0.5) - 1.0; }

double Saw(double x) { return 2.0 * Fraction(x) - 1.0; }

double Gauss(double x, double mid, double width) {
    const double distance = (x - mid) / width;
    return std::exp(-distance * distance / 2.0);
}

double Step(double x) { return x < 0.0 ? 0.0 : 1.0; }

double Floor(double x) { return std::floor(x); }

// The number of SplitMix64 (a generator whose state only counts up, so that each number is had without those before
// it) as a fraction: the upper 53 bits are all that a double holds.
double Noise(void* k, double seed) {
    constexpr double kHighestSeed = 9007199254740992.0;  // 2^53
    if (!std::isfinite(seed)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const auto whole = static_cast<std::int64_t>(std::nearbyint(std::clamp(seed, -kHighestSeed, kHighestSeed)));
    const auto count = static_cast<std::uint64_t>(*static_cast<const int*>(k)) + 1;
    std::uint64_t z = static_cast<std::uint64_t>(whole) + count * 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    z ^= z >> 31U;
    return static_cast<double>(z >> 11U) / (kHighestSeed / 2.0) - 1.0;
}

}  // namespace

void DefineFormulaFunctions(mu::Parser& parser, int* k) {
    parser.DefineFun("sinc", Sinc);
    parser.DefineFun("square", Square);
    parser.DefineFun("pulse", Pulse);
    parser.DefineFun("tri", Tri);
    parser.DefineFun("saw", Saw);
    parser.DefineFun("gauss", Gauss);
    parser.DefineFun("step", Step);
    parser.DefineFun("floor", Floor);
    constexpr bool kSameForSameSeed = false;  // else the parser would compute noise(1) but once
    parser.DefineFunUserData("noise", Noise, k, kSameForSameSeed);
}
