#include <gtest/gtest.h>

#include "core/FrequencyDisplay.h"
#include "core/LevelRange.h"
#include "core/Numbers.h"

namespace {

TEST(FormatPicture, RoundsTheDecimalValueHalfAwayFromZero) {
    struct Case {
        double value;
        const char* picture;
        const char* text;
    };
    const Case cases[] = {{0.15, "0.0", "0.2"},
                          {0.205, "0.00", "0.21"},
                          {-0.205, "0.00", "-0.21"},
                          {1000.0, "00000000.0000", "00001000.0000"},
                          {15.0e6, "00000000.0000", "15000000.0000"},
                          {0.0001, "00000000.0000", "00000000.0001"},
                          {123456789.5, "00000000.0000", "123456789.5000"},
                          {7.0, "000.0", "007.0"},
                          {0.96, "0.0", "1.0"},
                          {99.995, "0.00", "100.00"},
                          {0.0071, "0.00", "0.01"},
                          {0.004, "0.00", "0.00"},
                          {0.005, "0.00", "0.01"},
                          {0.0004, "0.00", "0.00"},
                          {-0.00004, "0.0000", "0.0000"},
                          {0.0, "0.00000", "0.00000"},
                          {15.0, "0.0000000000", "15.0000000000"},
                          {2.5, "0", "3"},
                          {1e20, "0.0", "100000000000000000000.0"}};
    for (const Case& c : cases) {
        EXPECT_EQ(FormatPicture(c.value, c.picture, '.').toStdString(), c.text) << c.value << " in " << c.picture;
    }
    EXPECT_EQ(FormatPicture(1.5, "0.00", ','), u"1,50");
}

TEST(ReadHeadNumber, TakesTheNumberAtTheHeadOfAReply) {
    const std::pair<const char*, double> cases[] = {
        {"1000.5", 1000.5}, {"  12 34 Hz", 1234.0}, {"1\t2\n3", 123.0}, {"+5", 5.0},
        {"-0.25V", -0.25},  {"1e3x", 1000.0},       {"1.5E-2", 0.015},  {"2E", 2.0},
        {".5", 0.5},        {"-.5", -0.5},          {"F=5", 0.0},       {"", 0.0},
        {"-", 0.0},         {"inf", 0.0},           {"nan", 0.0},       {"1e999", 0.0},
        {"1,5", 1.0},       {"1.2.3", 1.2},         {"--5", 0.0},       {"+-5", 0.0}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(ReadHeadNumber(QString::fromLatin1(text)), value) << text;
    }
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
    EXPECT_EQ(point.Plain(40.0), u"40");
    EXPECT_DOUBLE_EQ(comma.ReadEntry(QStringLiteral("2,5E3")), 2500.0);
    EXPECT_DOUBLE_EQ(point.ReadEntry(QStringLiteral(" 50 ")), 50.0);
    EXPECT_DOUBLE_EQ(neither.ReadEntry(QStringLiteral("1.5")), 1.5);
    for (const char* const noNumber : {"", "/", "1/2", "1.2.3", "1E999", "-"}) {
        EXPECT_EQ(point.ReadEntry(QString::fromLatin1(noNumber)), 0.0) << noNumber;
    }
}

TEST(NearestEven, SendsAHalfToTheEvenNeighbour) {
    EXPECT_EQ(NearestEven(100.5), 100.0);
    EXPECT_EQ(NearestEven(101.5), 102.0);
    EXPECT_EQ(NearestEven(-0.5), 0.0);
    EXPECT_EQ(NearestEven(2.51), 3.0);
}

TEST(LevelRange, BoundsAreInclusiveAndGapsBelongToRange3) {
    const std::pair<double, int> vpp[] = {{0.019, 3}, {0.02, 1},  {0.2, 1},  {0.205, 3}, {0.21, 2},
                                          {2.0, 2},   {2.005, 3}, {2.01, 3}, {20.0, 3}};
    for (const auto& [level, range] : vpp) {
        EXPECT_EQ(LevelRangeNumber(level, kTrue), range) << level << " Vpp";
    }
    const std::pair<double, int> vrms[] = {{0.0071, 1}, {0.07, 1}, {0.0705, 3}, {0.071, 2}, {0.7, 2}, {0.701, 3}};
    for (const auto& [level, range] : vrms) {
        EXPECT_EQ(LevelRangeNumber(level, kFalse), range) << level << " Vrms";
    }
}

TEST(FrequencyUnit, ChangesAt1000AndAMillion) {
    const std::pair<double, int> cases[] = {{0.0001, 0}, {999.9999, 0}, {1000.0, 1}, {999999.9999, 1}, {1.0e6, 2}};
    for (const auto& [hertz, index] : cases) {
        EXPECT_EQ(FrequencyUnitIndex(hertz), index) << hertz;
    }
}

}  // namespace
