#include <cmath>

#include "rules/DigitStep.h"
#include "rules/FrequencyRules.h"
#include "rules/KeyFilter.h"
#include "rules/LevelRules.h"
#include "rules/SweepRules.h"
#include "support/PrintQt.h"

namespace {

const UserNumbers kPoint{QLocale::c()};
const UserNumbers kComma{QLocale(QLocale::German, QLocale::Germany)};

TEST(KeyFilter, PassesTheKeysOfEachClass) {
    const std::tuple<KeyClass, quint8, const char16_t*> cases[] = {{KeyClass::Plain, 46, u"09./.EE"},
                                                                   {KeyClass::Plain, 44, u"09,/,EE"},
                                                                   {KeyClass::Signed, 46, u"09./.+-EE"},
                                                                   {KeyClass::Signed, 44, u"09,/,+-EE"},
                                                                   {KeyClass::Digits, 46, u"09"}};
    for (const auto& [keys, separator, wanted] : cases) {
        QString taken;
        for (const QChar key : QStringLiteral("09./,+-eEx *\u00e9")) {
            taken += FilterKey(keys, key, separator);
        }
        EXPECT_EQ(taken.remove(QChar()), wanted);
    }
}

// As it is typed, ahead of Enter.
TEST(DigitStep, TakesANumberWithoutAWholePartAndLeavesOthers) {
    const std::tuple<const char16_t*, int, const char16_t*> cases[] = {
        {u".5", -1, u"0.6"}, {u"-,5", -1, u"-0,4"}, {u"7", -2, u"7.01"}, {u"1-2", 0, u"1-2"}, {u"+5", 0, u"+5"}};
    for (const auto& [number, power, stepped] : cases) {
        EXPECT_EQ(StepDigit(QString::fromUtf16(number), power, 1), stepped);
    }
}

TEST(FrequencyRules, TheToolTipNamesTheMaximumOfEachForm) {
    quint8 bmSignal = 0;
    for (const char16_t* const maximum :
         {u" 15MHz", u" 15MHz", u" 1MHz", u" 100kHz", u" 100kHz", u" 10MHz", u" 10MHz", u" noise mode"}) {
        EXPECT_TRUE(FrequencyToolTip(bmSignal).contains(QStringView(maximum))) << int{bmSignal};
        ++bmSignal;
    }
}

TEST(LevelRules, HoldsALevelWithinTheBoundsOfItsUnit) {
    const std::tuple<double, Truth, bool, double, const char16_t*> cases[] = {
        {0.02, kTrue, false, 0.02, u""},      {0.0199, kTrue, false, 0.02, u"Min. Level: 0.0200"},
        {20.0, kTrue, false, 20.0, u""},      {20.001, kTrue, false, 20.0, u"Max. Level: 20.0000"},
        {0.0071, kFalse, false, 0.0071, u""}, {0.0, kFalse, true, 0.0071, u"Min. Level: 0.0071"},
        {7.07, kFalse, false, 7.07, u""},     {7.08, kFalse, false, 7.07, u"Max. Level: 7.0700"},
        {10.0, kTrue, true, 10.0, u""},       {15.0, kTrue, true, 10.0, u"Am-Modulation is On. Max. Level: 10.0000"},
        {3.535, kFalse, true, 3.535, u""},    {3.6, kFalse, true, 3.535, u"Am-Modulation is On. Max. Level: 3.5350"}};
    for (const auto& [level, vpp, am, wanted, message] : cases) {
        const Held held = HoldLevel(level, vpp, am, kPoint);
        EXPECT_DOUBLE_EQ(held.value, wanted) << level;
        EXPECT_EQ(held.hint, message) << level;
    }
}

TEST(LevelRules, TheSideThatGivesWayMeetsTheBound) {
    const double root = std::sqrt(2.0);
    const std::tuple<double, double, quint8, Truth, double> cases[] = {
        {1.0, 0.5, 2, kTrue, 1.0},    {1.0001, 0.5, 2, kTrue, 1.0},   {1.7, 0.15, 2, kTrue, 1.7},
        {12.0, -5.0, 3, kTrue, 12.0}, {12.0, 5.0, 3, kTrue, 10.0},    {0.1, 0.05, 1, kTrue, 0.1},
        {6.0, 0.75, 3, kFalse, 6.0},  {0.07, -0.05, 1, kFalse, 0.07}, {6.0, 0.757, 3, kFalse, 7.07 - 0.757 * root},
        {0.3, 0.5, 2, kFalse, 0.071}, {8.0, -0.1, 3, kFalse, 7.07}};
    for (const auto& [level, offset, range, vpp, wanted] : cases) {
        const Held held = HoldLevelBesideOffset(level, offset, range, vpp, kPoint);
        EXPECT_DOUBLE_EQ(held.value, wanted) << level << ' ' << offset;
        EXPECT_EQ(held.hint.isEmpty(), held.value == level) << level << ' ' << offset;
    }
    EXPECT_DOUBLE_EQ(HoldLevelBesideOffset(0.0705, 5.0, 3, kFalse, kPoint).value, 0.0705);  // never raised
    EXPECT_DOUBLE_EQ(HoldOffsetBesideLevel(0.4, 1.5, 2, kTrue, kPoint).value, 0.25);
    EXPECT_DOUBLE_EQ(HoldOffsetBesideLevel(4.0, 6.0, 3, kFalse, kPoint).value, (20.0 - 12.0 * root) / 2.0);
    // Never of the other sign, never raised.
    EXPECT_DOUBLE_EQ(HoldOffsetBesideLevel(3.0, 25.0, 3, kTrue, kPoint).value, 0.0);
    EXPECT_DOUBLE_EQ(HoldOffsetBesideLevel(5.0, 1.0, 3, kFalse, kPoint).value, 5.0);

    EXPECT_DOUBLE_EQ(RoundOffset(0.04567, 1), 0.04567);
    EXPECT_DOUBLE_EQ(RoundOffset(0.12345, 2), 0.123);
    EXPECT_DOUBLE_EQ(RoundOffset(1.235, 3), 1.24);
}

TEST(LevelRules, TextsNameTheRangeAndTheUnit) {
    EXPECT_EQ(LevelToolTip(kFalse, kComma), u"Level range is from 0,007 Vrms to 7,07 Vrms (incl. 2X offset)");
    EXPECT_EQ(OffsetToolTip(1, kTrue, kPoint), u"Max offset in range1 is 50mV (level <= 0.20 Vpp)");
    EXPECT_EQ(OffsetToolTip(2, kFalse, kPoint), u"Max offset in range2 is 500mV (level <= 0.70 Vrms)");
    EXPECT_EQ(HoldOffset(5.1, 3).hint, u"Max Offset in Range3 is 5.00V");
    EXPECT_EQ(HoldLevelBesideOffset(0.07, 0.05, 1, kFalse, kComma).hint,
              u"2 X offset + output voltage is higher then the max. possible level Range1: 0,07V");
}

TEST(SweepRules, HoldTheTime) {
    const std::tuple<double, double, const char16_t*> cases[] = {{0.01, 0.01, u""},
                                                                 {40.0, 40.0, u""},
                                                                 {0.009, 0.01, u"Minimum sweep time : 0,01 sec"},
                                                                 {40.1, 40.0, u"Maximun sweep time : 40 sec"}};
    for (const auto& [entry, held, hint] : cases) {
        EXPECT_EQ(HoldSweepTime(entry, kComma).value, held);
        EXPECT_EQ(HoldSweepTime(entry, kComma).hint, hint);
    }
}

}  // namespace
