#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

#include "editor/LinearMemory.h"
#include "editor/Spline.h"

namespace {

using Pairs = std::vector<std::pair<int, int>>;  // address, value

// Expects some samples of what is generated from the points; 999 where nothing may be written.
template <typename Generate>
void ExpectSamples(const Generate& generate, const Pairs& pairs, int LastAdr, const Pairs& expected) {
    std::vector<Record> points;
    for (const auto& [adr, value] : pairs) {
        points.push_back({0, static_cast<qint16>(adr), static_cast<qint16>(value)});
    }
    std::vector<qint16> samples(static_cast<std::size_t>(LastAdr) + 2, 999);
    generate(points, std::span(samples).first(samples.size() - 1));
    EXPECT_EQ(samples.back(), 999);
    for (const auto& [adr, value] : expected) {
        EXPECT_EQ(samples[static_cast<std::size_t>(adr)], value) << adr << " of " << LastAdr;
    }
}

TEST(Interpolation, MeetsTheSamplesWorkedByHand) {
    const std::tuple<Pairs, int, Pairs, Pairs> cases[] = {
        // points, LastAdr, spline, straight lines
        {{}, 9, {{0, 999}, {9, 999}}, {{0, 999}, {9, 999}}},
        {{{7, -3}}, 9, {{0, -3}, {9, -3}}, {{0, -3}, {9, -3}}},
        {{{0, 0}, {10, 5}}, 10, {{1, 0}, {3, 2}, {5, 2}, {10, 5}}, {{1, 0}, {3, 2}, {5, 2}, {10, 5}}},
        // 15 t - t^3 / 20 up to 10, and mirrored
        {{{0, 0}, {10, 100}, {20, 0}}, 20, {{1, 15}, {5, 69}, {10, 100}, {15, 69}, {20, 0}}, {{5, 50}, {12, 80}}},
        {{{0, 0}, {10, 7}, {10, 100}, {20, 9}, {20, 0}}, 20, {{5, 69}, {15, 69}, {20, 0}}, {{5, 50}, {12, 80}}},
        {{{0, 5}, {1, -7}, {2, 9}, {4, 0}}, 4, {{0, 5}, {1, -7}, {2, 9}, {4, 0}}, {{0, 5}, {1, -7}, {2, 9}}},
        // beyond a sample: a spline is cut, a line only outside its points
        {{{0, 2060}, {9, 0}, {99, 0}}, 200, {{0, 2047}, {99, 999}, {200, 0}}, {{0, 2060}, {200, 0}}},
        {{{10, 0}, {20, 2060}}, 40, {{9, 999}, {20, 999}, {40, 2060}}, {{0, -2047}, {20, 2060}, {21, 2047}}},
        {{{0, -32768}, {1, 32767}, {2, -32768}}, 3, {{0, -2047}, {1, 2047}}, {{1, 32767}, {3, -2047}}},
        // off the axis
        {{{-30, 7}, {-20, 3}, {-10, 0}, {10, 20}, {32767, 20}}, 16384, {{16384, 20}}, {{0, 10}, {16384, 20}}},
        {{{-32768, 0}, {-5, 50}, {-1, 10}}, 20, {{0, 999}, {20, 10}}, {{0, 0}, {5, -50}}},
        {{{0, 0}, {16384, 1000}}, 16384, {{8192, 500}, {16384, 1000}}, {{8192, 500}, {16384, 1000}}}};
    for (const auto& [points, LastAdr, spline, lines] : cases) {
        ExpectSamples(ComputeSpline, points, LastAdr, spline);
        ExpectSamples(GenerateLinearMemory, points, LastAdr, lines);
    }
}

// Another road to the same curve: a + b x + the sum of c |x - x(j)|^3, with the sums of c and of c x(j) 0; a dense
// system solved by elimination with pivoting. Addresses count in thousands.
std::vector<long double> Basis(const std::vector<Record>& points, long double x) {
    std::vector<long double> row{1.0L, x};
    for (const Record& point : points) {
        const long double away = std::abs(x - point.Adr / 1000.0L);
        row.push_back(away * away * away);
    }
    return row;
}

std::vector<long double> SolveSpline(const std::vector<Record>& points) {
    const std::size_t size = points.size() + 2;
    std::vector<std::vector<long double>> rows(2, std::vector<long double>(size + 1));
    for (const Record& point : points) {
        rows[0][rows.size()] = 1.0L;
        rows[1][rows.size()] = point.Adr / 1000.0L;
        rows.push_back(Basis(points, point.Adr / 1000.0L));
        rows.back().push_back(point.Value);
    }
    for (std::size_t k = 0; k < size; ++k) {
        const auto smaller = [k](const auto& a, const auto& b) { return std::abs(a[k]) < std::abs(b[k]); };
        std::swap(rows[k], *std::max_element(rows.begin() + static_cast<std::ptrdiff_t>(k), rows.end(), smaller));
        for (std::size_t i = 0; i < size; ++i) {
            const long double factor = i == k ? 0.0L : rows[i][k] / rows[k][k];
            std::ranges::transform(rows[i], rows[k], rows[i].begin(), [=](auto a, auto b) { return a - factor * b; });
        }
    }
    std::vector<long double> solution(size);
    for (std::size_t k = 0; k < size; ++k) {
        solution[k] = rows[k][size] / rows[k][k];
    }
    return solution;
}

TEST(Spline, AgreesWithAnotherSolverOnRandomPoints) {
    std::mt19937 random(5276);
    const auto upTo = [&random](int high) { return 1 + static_cast<int>(random() % static_cast<unsigned>(high)); };
    for (int run = 0; run < 40; ++run) {
        std::vector<Record> points;
        for (int adr = upTo(30), widest = upTo(900); points.size() < 18; adr += upTo(widest)) {
            points.push_back({0, static_cast<qint16>(adr), static_cast<qint16>(upTo(4095) - 2048)});
        }
        std::vector<qint16> signal(16385);
        ComputeSpline(points, signal);
        const std::vector<long double> solution = SolveSpline(points);
        for (int a = points.front().Adr; a < points.back().Adr; ++a) {
            const std::vector<long double> basis = Basis(points, a / 1000.0L);
            const long double exact = std::inner_product(basis.begin(), basis.end(), solution.begin(), 0.0L);
            const auto held = static_cast<double>(std::clamp(exact, -2047.0L, 2047.0L));
            ASSERT_NEAR(signal[static_cast<std::size_t>(a)], held, 0.5 + 1.0e-6) << run << ' ' << a;
        }
    }
}

}  // namespace
