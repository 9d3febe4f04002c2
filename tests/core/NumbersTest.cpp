#include <cmath>

#include "core/LevelRange.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "support/PrintQt.h"

namespace {

TEST(FormatPicture, RoundsTheDecimalValueHalfAwayFromZero) {
    const std::tuple<double, const char*, const char16_t*> cases[] = {
        {0.15, "0.0", u"0.2"},        {0.205, "0.00", u"0.21"},  {-0.205, "0.00", u"-0.21"},
        {99.995, "0.00", u"100.00"},  {0.0071, "0.00", u"0.01"}, {0.004, "0.00", u"0.00"},
        {0.005, "0.00", u"0.01"},     {0.0004, "0.00", u"0.00"}, {-0.00004, "0.00", u"0.00"},
        {0.0, "0.00000", u"0.00000"}, {2.5, "0", u"3"},          {7.0, "000.0", u"007.0"}};
    for (const auto& [value, picture, text] : cases) {
        EXPECT_EQ(FormatPicture(value, picture, '.'), text) << value << " in " << picture;
    }
    EXPECT_EQ(FormatPicture(0.0001, "00000000.0000", ','), u"00000000,0001");
    EXPECT_EQ(FormatPicture(123456789.5, "00000000.0000", '.'), u"123456789.5000");
    EXPECT_EQ(FormatPicture(1e20, "0.0", '.'), u"100000000000000000000.0");
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

TEST(TrimBlanks, TakesBothEndsAndAllOfABlankText) {
    EXPECT_EQ(TrimBlanks(QStringLiteral("  1.20 Kx ")), u"1.20 Kx");
    EXPECT_EQ(TrimBlanks(QStringLiteral("   ")), u"");
    EXPECT_EQ(TrimBlanks(QStringLiteral("\t1 ")), u"\t1");
}

TEST(HeadNumber, IsNoneWithoutDigitsAndGoesBeyondTheRangeOfADouble) {
    const std::pair<const char16_t*, double> cases[] = {{u"+1.5x", 1.5},      {u" -2", -2.0},         {u".5", 0.5},
                                                        {u"1E999", HUGE_VAL}, {u"-1E999", -HUGE_VAL}, {u"1E-999", 0.0}};
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(FindHeadNumber(text), number);
    }
    for (const char16_t* const text : {u"", u".", u"-", u"inf", u"x1"}) {
        EXPECT_EQ(FindHeadNumber(text), std::nullopt);
    }
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

}  // namespace
