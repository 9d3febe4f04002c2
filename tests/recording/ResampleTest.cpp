#include <algorithm>
#include <cmath>
#include <numeric>

#include "recording/Resample.h"
#include "recording/Units.h"
#include "support/PrintQt.h"

namespace {

using Values = std::vector<double>;
using recording::Resample;
using recording::Spread;

TEST(Unit, APrefixAloneIsNoneOfATitle) {
    for (const char* const text : {"m", "k", "M", ""}) {
        EXPECT_FALSE(recording::ReadUnit(text)) << text;
    }
    EXPECT_EQ(recording::ReadCellUnit("k")->scale, 1000.0);
    EXPECT_EQ(recording::ReadUnit("mV")->scale, 0.001);
}

void ExpectNear(const Values& values, const Values& expected) {
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], expected[i], 1e-12) << i;
    }
}

TEST(Resample, TakesStraightLinesAndMeans) {
    const std::tuple<Values, Values, std::size_t, Values> cases[] = {
        {{1, 3}, {}, 5, {1, 1.5, 2, 2.5, 3}},
        {{1, 5, 2}, {}, 3, {1, 5, 2}},
        {{7}, {}, 3, {7, 7, 7}},
        {{1, 2}, {}, 1, {1.5}},
        {{1, 2, 3, 4}, {}, 2, {1.5, 3.5}},
        {{0, 3, 9}, {}, 2, {1, 7}},  // half of the middle value for each
        // Steps of their own: along the time, not along the rows.
        {{0, 1, 2}, {0, 3, 4}, 5, {0, 1. / 3, 2. / 3, 1, 2}},
        {{0, 2, 2, 4, 4}, {0, 1, 2, 2, 4}, 2, {1.5, 4}},
        {{0, 0, 8, 0}, {0, 10, 11, 12}, 3, {0, 0, 2}}};
    for (const auto& [values, times, addresses, expected] : cases) {
        ExpectNear(Resample(values, times, addresses), expected);
    }
}

TEST(Resample, KeepsFastPartsFromMakingFalseWaves) {
    Values fast(100'000);  // a wave of 50 values, which a choice of single values would keep at full height
    for (std::size_t i = 0; i < fast.size(); ++i) {
        fast[i] = std::sin(static_cast<double>(i) / 50.0 * 6.283185307179586) + (i < 50'000 ? 0.0 : 100.0);
    }
    Values times(fast.size());
    std::iota(times.begin(), times.end(), 0.0);
    for (const Values& mean : {Resample(fast, {}, 2048), Resample(fast, times, 2048)}) {
        EXPECT_NEAR(mean[1000], 0.0, 0.1);
        EXPECT_NEAR(mean[1047], 100.0, 0.1);
    }
    const double great = 1.7e308;
    EXPECT_EQ(Resample(Values(10, great), {}, 3).front(), great);
}

TEST(Spread, ReachesBothEndsExactly) {
    EXPECT_EQ(Spread(Values{-2, 0, -1}, 1, 32767), (Values{1, 32767, 16384}));
    EXPECT_EQ(Spread(Values{-1e308, 1e308, 0}, -1500, 1500), (Values{-1500, 1500, 0}));
    EXPECT_EQ(Spread(Values{0.1, 0.3, 0.2}, -2047, 2047).at(1), 2047);
    for (const Values& flat : {Values{}, Values{5, 5}, Values{0, 0}, Values{1, 1 + 1e-15}}) {
        EXPECT_TRUE(Spread(flat, 1, 32767).empty());
    }
}

TEST(WithPrefix, WritesBenchNumbers) {
    const std::tuple<double, const char16_t*, const char16_t*> cases[] = {{4e-9, u"s", u"4 ns"},
                                                                          {999.9999999e-9, u"s", u"1 \u00B5s"},
                                                                          {0.0, u"s", u"0 s"},
                                                                          {-1.25e6, u"Hz", u"-1.25 MHz"},
                                                                          {133.3333333e-3, u"s", u"133.333 ms"},
                                                                          {3600, u"s", u"3.6 ks"},
                                                                          {5e12, u"Hz", u"5000 GHz"},
                                                                          {1e-18, u"s", u"0.001 fs"},
                                                                          {1234.5, u"", u"1234.5"}};
    for (const auto& [value, unit, text] : cases) {
        EXPECT_EQ(recording::WithPrefix(value, QString::fromUtf16(unit)), QStringView(text));
    }
}

}  // namespace
