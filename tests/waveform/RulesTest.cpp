#include <gtest/gtest.h>

#include <map>

#include "waveform/LinearMemory.h"
#include "waveform/Spline.h"
#include "waveform/TraceReply.h"
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

TEST(ViewRules, FitTheViewToASmallerAxis) {
    EXPECT_EQ(FitView({4095, 4200}, 4095), (View{1000, 2000}));
    EXPECT_EQ(FitView({4000, 5000}, 4095), (View{3095, 4095}));
    EXPECT_EQ(FitView({3000, 9000}, 4095), (View{0, 4095}));
    EXPECT_EQ(FitView({5000, 16384}, 16384), (View{5000, 16384}));
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

constexpr qint16 kUntouched = 77;

QString Repeat(const char* number, int times) { return QString(QString::fromLatin1(number) + u',').repeated(times); }

// Expects these samples of the copy buffer, and that nothing but the samples 1 to 2048 was written.
void ExpectTrace(const QString& text, const std::map<std::size_t, int>& samples) {
    std::array<qint16, kAddresses16k> buffer{};
    buffer.fill(kUntouched);
    ASSERT_TRUE(ReadTrace(text, buffer)) << text.left(60).toStdString();
    for (const auto& [index, sample] : samples) {
        EXPECT_EQ(buffer.at(index), sample) << text.left(60).toStdString() << "... at " << index;
    }
    EXPECT_TRUE(buffer[0] == kUntouched && buffer[2049] == kUntouched);
}

TEST(TraceReply, BecomesTheSamples) {
    ExpectTrace(QStringLiteral("0,255,") + Repeat("128", 2045) + u"255", {{1, -1500}, {2, 1500}, {3, 6}, {2048, 1500}});
    ExpectTrace(QStringLiteral("0,10,2.5,3.5, 7 ,+8,abc,1e1"),
                {{3, -900}, {4, -300}, {5, 600}, {6, 900}, {7, -1500}, {8, 1500}, {9, 1500}, {2048, 1500}});
    ExpectTrace(QStringLiteral("-32000,767"), {{1, -1500}, {2, 1500}});
    // All above 255: the scale still begins at 255.
    ExpectTrace(QStringLiteral("1005,1755"), {{1, 0}, {2, 1500}});
    ExpectTrace(QStringLiteral("256"), {{1, 1500}, {2048, 1500}});
    // A trace without positive numbers stays as it is.
    ExpectTrace(Repeat("0", 2047) + u"0", {{1, 0}, {2048, 0}});
    ExpectTrace(QString(), {{1, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("no trace"), {{1, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("-5,-32768,-0.4"), {{1, -5}, {2, -32768}, {3, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("1e-999"), {{1, 0}});
    // The number before a zero ends it.
    const QString head = QStringLiteral("10,") + Repeat("20", 2046);
    ExpectTrace(head + u"0", {{1, -1500}, {2047, 1500}, {2048, 1500}});
    ExpectTrace(head, {{1, -1500}, {2047, 1500}, {2048, 1500}});
    ExpectTrace(head + u"0.4", {{1, 0}, {2047, 1500}, {2048, -1500}});
    ExpectTrace(head + u"30,40", {{1, -1500}, {2047, 0}, {2048, 1500}});
}

TEST(TraceReply, FailsWhereANumberOrTheScaleDoesNotFit) {
    std::array<qint16, kAddresses16k> buffer{};
    for (const char* const text :
         {"1,32768", "1,32767.5", "-32768.6", "1,1e999", "1,-1e999", "1", "255", "-32000,768"}) {
        EXPECT_FALSE(ReadTrace(QString::fromLatin1(text), buffer)) << text;
    }
    EXPECT_FALSE(ReadTrace(Repeat("1", 2047) + u"40000", buffer));
    EXPECT_TRUE(ReadTrace(QStringLiteral("0,32767.4"), buffer));
}

}  // namespace
