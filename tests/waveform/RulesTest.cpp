#include <gtest/gtest.h>

#include "waveform/LinearMemory.h"
#include "waveform/Spline.h"
#include "waveform/ViewRules.h"

namespace {

TEST(ViewRules, KeepADragOnTheAxisAndWideEnough) {
    EXPECT_EQ(ZoomView(141, 100, 4095), (View{100, 141}));
    EXPECT_EQ(ZoomView(140, 135, 4095), (View{135, 175}));
    EXPECT_EQ(ZoomView(4080, 4090, 4095), (View{4055, 4095}));
    EXPECT_EQ(ZoomView(10, -300, 4095), (View{0, 40}));
    EXPECT_EQ(ZoomView(-5, 20000, 16384), (View{0, 16384}));
}

TEST(ViewRules, PageByHalfTheViewFromAQuarterOfTheStrip) {
    EXPECT_EQ(PageView({1000, 2000}, 994.9F, 4095), (View{500, 1500}));
    EXPECT_EQ(PageView({1000, 2000}, 995.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({1000, 2000}, 2005.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({1000, 2000}, 2005.1F, 4095), (View{1500, 2500}));
    EXPECT_EQ(PageView({1000, 1103}, 1200.0F, 4095), (View{1052, 1155}));
    EXPECT_EQ(PageView({3000, 4000}, 4020.0F, 4095), (View{3095, 4095}));
    EXPECT_EQ(PageView({200, 1200}, 180.0F, 4095), (View{0, 1000}));
    EXPECT_EQ(PageView({3095, 4095}, 4110.0F, 4095), std::nullopt);
    EXPECT_EQ(PageView({0, 1000}, -20.0F, 4095), std::nullopt);
}

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
        // uneven, from the exact solution
        {{{3, -500}, {10, 300}, {50, 900}, {60, -1200}, {200, 1000}},
         200,
         {{4, -385}, {9, 187}, {11, 413}, {20, 1354}, {30, 2027}, {49, 1065}, {51, 721}, {61, -1414}, {199, 868}},
         {{55, -150}, {180, 686}, {200, 1000}}},
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

}  // namespace
