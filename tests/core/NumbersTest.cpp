#include <gtest/gtest.h>

#include <limits>

#include "core/FrequencyDisplay.h"
#include "core/LevelRange.h"
#include "core/Numbers.h"

namespace {

TEST(FormatPicture, RoundsTheDecimalValueHalfAwayFromZero) {
    const std::tuple<double, const char*, const char*> cases[] = {
        {0.15, "0.0", "0.2"},       {0.205, "0.00", "0.21"},     {-0.205, "0.00", "-0.21"}, {99.995, "0.00", "100.00"},
        {0.0071, "0.00", "0.01"},   {0.004, "0.00", "0.00"},     {0.005, "0.00", "0.01"},   {0.0004, "0.00", "0.00"},
        {-0.00004, "0.00", "0.00"}, {0.0, "0.00000", "0.00000"}, {2.5, "0", "3"},           {7.0, "000.0", "007.0"}};
    for (const auto& [value, picture, text] : cases) {
        EXPECT_EQ(FormatPicture(value, picture, '.').toStdString(), text) << value << " in " << picture;
    }
    EXPECT_EQ(FormatPicture(0.0001, "00000000.0000", ','), u"00000000,0001");
    EXPECT_EQ(FormatPicture(123456789.5, "00000000.0000", '.'), u"123456789.5000");
    EXPECT_EQ(FormatPicture(1e20, "0.0", '.'), u"100000000000000000000.0");
}

constexpr double kTooGreat = std::numeric_limits<double>::infinity();

TEST(ReadHeadNumber, TakesTheNumberAtTheHeadOfAReply) {
    const std::pair<const char*, double> cases[] = {
        {"1000.5", 1000.5},   {"  12 34 Hz", 1234.0}, {"1\t2\n3", 123.0}, {"+5", 5.0},
        {"-0.25V", -0.25},    {"1e3x", 1000.0},       {"1.5E-2", 0.015},  {"2E", 2.0},
        {".5", 0.5},          {"-.5", -0.5},          {"F=5", 0.0},       {"", 0.0},
        {"-", 0.0},           {"inf", 0.0},           {"nan", 0.0},       {"1e-999", 0.0},
        {"1,5", 1.0},         {"1.2.3", 1.2},         {"--5", 0.0},       {"+-5", 0.0},
        {"1e999", kTooGreat}, {"-1e999V", -kTooGreat}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(ReadHeadNumber(QString::fromLatin1(text)), value) << text;
    }
    EXPECT_EQ(ReadHeadNumber(QString(400, u'1').append(u".5 Hz")), kTooGreat);
}

TEST(UserNumbers, ReadAndShowByTheUsersLocale) {
    const UserNumbers point{QLocale::c()};
    const UserNumbers comma{QLocale(QLocale::German, QLocale::Germany)};
    const UserNumbers neither{QLocale(QLocale::Arabic, QLocale::Egypt)};
    EXPECT_EQ(point.DecimalSeparator, 46);
    EXPECT_EQ(comma.DecimalSeparator, 44);
    EXPECT_EQ(neither.DecimalSeparator, 46);
    EXPECT_EQ(comma.Picture(0.0001, "0.0000"), u"0,0001");
    EXPECT_EQ(comma.Plain(0.01), u"0,01");
    EXPECT_DOUBLE_EQ(comma.ReadEntry(QStringLiteral("2,5E3")), 2500.0);
    EXPECT_DOUBLE_EQ(point.ReadEntry(QStringLiteral(" 50 ")), 50.0);
    EXPECT_DOUBLE_EQ(neither.ReadEntry(QStringLiteral("1.5")), 1.5);
    for (const char* const noNumber : {"", "1/2", "1.2.3", "1E999", "-"}) {
        EXPECT_EQ(point.ReadEntry(QString::fromLatin1(noNumber)), 0.0) << noNumber;
    }
}

TEST(NearestEven, SendsAHalfToTheEvenNeighbour) {
    EXPECT_EQ(NearestEven(100.5), 100.0);
    EXPECT_EQ(NearestEven(101.5), 102.0);
    EXPECT_EQ(NearestEven(-0.5), 0.0);
}

TEST(LevelRange, BoundsAreInclusiveAndGapsBelongToRange3) {
    const std::tuple<double, Truth, int> cases[] = {
        {0.019, kTrue, 3},   {0.02, kTrue, 1},   {0.2, kTrue, 1},  {0.205, kTrue, 3},   {0.21, kTrue, 2},
        {2.0, kTrue, 2},     {2.005, kTrue, 3},  {20.0, kTrue, 3}, {0.0071, kFalse, 1}, {0.07, kFalse, 1},
        {0.0705, kFalse, 3}, {0.071, kFalse, 2}, {0.7, kFalse, 2}, {0.701, kFalse, 3}};
    for (const auto& [level, tmVPP, range] : cases) {
        EXPECT_EQ(LevelRangeNumber(level, tmVPP), range) << level << ' ' << int{tmVPP};
    }
}

TEST(FrequencyUnit, ChangesAt1000AndAMillion) {
    const std::pair<double, int> cases[] = {{0.0001, 0}, {999.9999, 0}, {1000.0, 1}, {999999.9999, 1}, {1.0e6, 2}};
    for (const auto& [hertz, index] : cases) {
        EXPECT_EQ(FrequencyUnitIndex(hertz), index) << hertz;
    }
}

}  // namespace
