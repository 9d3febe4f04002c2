#include <gtest/gtest.h>

#include <cmath>

#include "panel/FrequencyRules.h"
#include "panel/KeyFilter.h"
#include "panel/LevelRules.h"
#include "panel/ModulationRules.h"
#include "panel/SweepRules.h"

namespace {

const UserNumbers kPoint{QLocale::c()};
const UserNumbers kComma{QLocale(QLocale::German, QLocale::Germany)};

TEST(KeyFilter, PassesTheKeysOfEachClass) {
    const char* const typed = "09./,+-eEx *\xe9";
    const std::tuple<KeyClass, quint8, const char*> cases[] = {{KeyClass::Plain, 46, "09./.EE"},
                                                               {KeyClass::Plain, 44, "09,/,EE"},
                                                               {KeyClass::Signed, 46, "09./.+-EE"},
                                                               {KeyClass::Signed, 44, "09,/,+-EE"},
                                                               {KeyClass::Digits, 46, "09"}};
    for (const auto& [keys, separator, wanted] : cases) {
        QString taken;
        for (const QChar key : QString::fromLatin1(typed)) {
            const QChar passed = FilterKey(keys, key, separator);
            taken += passed.isNull() ? QString() : QString(passed);
        }
        EXPECT_EQ(taken, QLatin1StringView(wanted));
    }
}

TEST(FrequencyRules, HoldsTheEntryInHertzWithinInclusiveBounds) {
    const std::tuple<double, int, double, bool> cases[] = {
        {0.0001, 0, 0.0001, false}, {0.00009, 0, 0.0001, true}, {0.0000001, 1, 0.0001, false},
        {0.0, 0, 0.0001, true},     {15.0, 2, 15.0e6, false},   {15.0000001, 2, 15.0e6, true},
        {100.0, 2, 15.0e6, true},   {0.5, 2, 5.0e5, false},     {2000.0, 0, 2000.0, false},
        {2.0, 1, 2000.0, false},    {7.0, -1, 7.0, false}};
    for (const auto& [entry, unit, hertz, outOfRange] : cases) {
        const HeldFrequency held = HoldFrequency(entry, unit);
        EXPECT_DOUBLE_EQ(held.hertz, hertz) << entry << ' ' << unit;
        EXPECT_EQ(held.outOfRange, outOfRange) << entry << ' ' << unit;
    }
    EXPECT_EQ(FrequencyRangeMessage(kPoint), u"Frequencyrange: 0.0001 to 15000000.0000");
    EXPECT_EQ(FrequencyRangeMessage(kComma), u"Frequencyrange: 0,0001 to 15000000,0000");
}

TEST(LevelRules, HoldsALevelWithinTheBoundsOfItsUnit) {
    const std::tuple<double, Truth, bool, double, const char*> cases[] = {
        {0.02, kTrue, false, 0.02, ""},
        {0.0199, kTrue, false, 0.02, "Min. Level: 0.0200"},
        {20.0, kTrue, false, 20.0, ""},
        {20.001, kTrue, false, 20.0, "Max. Level: 20.0000"},
        {10.0, kTrue, true, 10.0, ""},
        {15.0, kTrue, true, 10.0, "Am-Modulation is On. Max. Level: 10.0000"},
        {0.0071, kFalse, false, 0.0071, ""},
        {0.0, kFalse, true, 0.0071, "Min. Level: 0.0071"},
        {7.07, kFalse, false, 7.07, ""},
        {7.08, kFalse, false, 7.07, "Max. Level: 7.0700"},
        {3.6, kFalse, true, 3.535, "Am-Modulation is On. Max. Level: 3.5350"}};
    for (const auto& [level, vpp, am, wanted, message] : cases) {
        const HeldLevel held = HoldLevel(level, vpp, am);
        EXPECT_DOUBLE_EQ(held.level, wanted) << level;
        EXPECT_EQ(LevelMessage(held.bound, vpp, kPoint), QLatin1StringView(message)) << level;
    }
}

TEST(LevelRules, SumTestIsStrictAndTakesTheSign) {
    const std::tuple<double, double, quint8, Truth, bool> cases[] = {
        {1.0, 0.5, 2, kTrue, false},   {1.0001, 0.5, 2, kTrue, true}, {1.7, 0.15, 2, kTrue, false},
        {12.0, -5.0, 3, kTrue, false}, {12.0, 5.0, 3, kTrue, true},   {0.1, 0.05, 1, kTrue, false},
        {6.0, 0.75, 3, kFalse, false}, {6.0, 0.757, 3, kFalse, true}, {0.07, -0.05, 1, kFalse, false}};
    for (const auto& [level, offset, range, vpp, exceeds] : cases) {
        EXPECT_EQ(SumExceedsRange(level, offset, range, vpp), exceeds) << level << ' ' << offset;
    }
}

TEST(LevelRules, TheSideThatGivesWayMeetsTheBound) {
    EXPECT_DOUBLE_EQ(LevelBesideOffset(15.0, 4.0, 3, kTrue), 12.0);
    EXPECT_DOUBLE_EQ(LevelBesideOffset(6.0, 1.0, 3, kFalse), 7.07 - std::sqrt(2.0));
    // Never below the range, never raised.
    EXPECT_DOUBLE_EQ(LevelBesideOffset(0.3, 0.5, 2, kFalse), 0.071);
    EXPECT_DOUBLE_EQ(LevelBesideOffset(0.0705, 5.0, 3, kFalse), 0.0705);
    EXPECT_DOUBLE_EQ(LevelBesideOffset(8.0, -0.1, 3, kFalse), 7.07);

    EXPECT_DOUBLE_EQ(OffsetBesideLevel(1.5, 0.4, 2, kTrue), 0.25);
    EXPECT_DOUBLE_EQ(OffsetBesideLevel(12.0, 5.0, 3, kTrue), 4.0);
    EXPECT_DOUBLE_EQ(OffsetBesideLevel(6.0, 4.0, 3, kFalse), (20.0 - 12.0 * std::sqrt(2.0)) / 2.0);
    // Never of the other sign, never raised.
    EXPECT_DOUBLE_EQ(OffsetBesideLevel(25.0, 3.0, 3, kTrue), 0.0);
    EXPECT_DOUBLE_EQ(OffsetBesideLevel(1.0, 5.0, 3, kFalse), 5.0);

    EXPECT_DOUBLE_EQ(RoundOffset(0.04567, 1), 0.04567);
    EXPECT_DOUBLE_EQ(RoundOffset(0.12345, 2), 0.123);
    EXPECT_DOUBLE_EQ(RoundOffset(1.235, 3), 1.24);
}

TEST(LevelRules, TextsNameTheRangeAndTheUnit) {
    EXPECT_EQ(LevelToolTip(kTrue, kPoint), u"Level range is from 0.020 Vpp to 20.00 Vpp (incl. 2X offset)");
    EXPECT_EQ(LevelToolTip(kFalse, kComma), u"Level range is from 0,007 Vrms to 7,07 Vrms (incl. 2X offset)");
    EXPECT_EQ(OffsetToolTip(1, kTrue, kPoint), u"Max offset in range1 is 50mV (level <= 0.20 Vpp)");
    EXPECT_EQ(OffsetToolTip(2, kFalse, kPoint), u"Max offset in range2 is 500mV (level <= 0.70 Vrms)");
    EXPECT_EQ(LargestOffsetMessage(1), u"Max Offset in Range1 is 50mV");
    EXPECT_EQ(LargestOffsetMessage(3), u"Max Offset in Range3 is 5.00V");
    const QString sum = QStringLiteral("2 X offset + output voltage is higher then the max. possible level ");
    EXPECT_EQ(SumMessage(1, kFalse, kPoint), sum + u"Range1: 0.07V");
    EXPECT_EQ(SumMessage(3, kTrue, kComma), sum + u"Range3: 20,00V");
}

TEST(SweepRules, HoldTheTime) {
    EXPECT_TRUE(HoldSweepTime(0.01, kPoint).message.isEmpty() && HoldSweepTime(40.0, kPoint).message.isEmpty());
    EXPECT_DOUBLE_EQ(HoldSweepTime(0.009, kComma).seconds, 0.01);
    EXPECT_EQ(HoldSweepTime(0.009, kComma).message, u"Minimum sweep time : 0,01 sec");
    EXPECT_DOUBLE_EQ(HoldSweepTime(41.0, kPoint).seconds, 40.0);
    EXPECT_EQ(HoldSweepTime(41.0, kPoint).message, u"Maximun sweep time : 40 sec");
}

TEST(ModulationRules, HoldDepthAndPhase) {
    const std::pair<double, int> depths[] = {{-1.0, 0}, {0.0, 0}, {0.5, 0}, {1.5, 2}, {100.0, 100}, {250.0, 100}};
    for (const auto& [entry, depth] : depths) {
        EXPECT_EQ(HoldDepth(entry), depth) << entry;
    }
    EXPECT_FALSE(HoldPhase(0.0).outOfRange || HoldPhase(359.9).outOfRange);
    EXPECT_TRUE(HoldPhase(359.95).outOfRange);
    EXPECT_DOUBLE_EQ(HoldPhase(359.95).degrees, 359.9);
    EXPECT_DOUBLE_EQ(HoldPhase(-0.1).degrees, 0.0);
}

}  // namespace
