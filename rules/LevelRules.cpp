#include "rules/LevelRules.h"

#include <algorithm>
#include <numbers>

namespace {

constexpr double kRoot2 = std::numbers::sqrt2;

// Sums of decimal entries carry binary dust: 2 x 0.15 + 1.7 is meant to be 2.
constexpr double kDustVolts = 1.0e-9;

QString RangeNumber(quint8 bmBereich) { return QString::number(bmBereich >= 1 && bmBereich <= 2 ? bmBereich : 3); }

// The largest offset as the instrument's front panel writes it.
QString LargestOffsetText(quint8 bmBereich) {
    switch (bmBereich) {
        case 1:
            return QStringLiteral("50mV");
        case 2:
            return QStringLiteral("500mV");
        default:
            return QStringLiteral("5.00V");
    }
}

bool SumExceedsRange(double level, double offset, quint8 bmBereich, Truth tmVPP) {
    const double sum = (tmVPP ? 2.0 : kRoot2) * offset + level;
    return sum - HighestLevel(RangeOf(bmBereich), tmVPP) > kDustVolts;
}

QString SumHint(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    return u"2 X offset + output voltage is higher then the max. possible level Range" + RangeNumber(bmBereich) +
           u": " + numbers.Picture(HighestLevel(RangeOf(bmBereich), tmVPP), "0.00") + u'V';
}

}  // namespace

Held HoldLevel(double level, Truth tmVPP, bool amOn, const UserNumbers& numbers) {
    const double lowest = LowestLevelOfAll(tmVPP);
    const double highest = HighestLevelOfAll(tmVPP);
    if (level < lowest) {
        return {lowest, u"Min. Level: " + numbers.Picture(lowest, "0.0000")};
    }
    if (amOn) {
        return HoldAmLevel(level, tmVPP, numbers);
    }
    if (level > highest) {
        return {highest, u"Max. Level: " + numbers.Picture(highest, "0.0000")};
    }
    return {level, {}};
}

Held HoldAmLevel(double level, Truth tmVPP, const UserNumbers& numbers) {
    const double highest = HighestAmLevel(tmVPP);
    if (level > highest) {
        return {highest, u"Am-Modulation is On. Max. Level: " + numbers.Picture(highest, "0.0000")};
    }
    return {level, {}};
}

double ConvertLevel(double level, bool toVpp) { return toVpp ? level * kRoot2 : level / kRoot2; }

Held HoldOffset(double offset, quint8 bmBereich) {
    const double largest = RangeOf(bmBereich).largestOffset;
    if (offset > largest) {
        return {largest, u"Max Offset in Range" + RangeNumber(bmBereich) + u" is " + LargestOffsetText(bmBereich)};
    }
    return {offset, {}};
}

Held HoldLevelBesideOffset(double level, double offset, quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    if (!SumExceedsRange(level, offset, bmBereich, tmVPP)) {
        return {level, {}};
    }
    const LevelRange& range = RangeOf(bmBereich);
    const QString hint = SumHint(bmBereich, tmVPP, numbers);
    if (tmVPP) {
        return {range.highestVpp - 2.0 * offset, hint};
    }
    const double reduced = std::clamp(range.highestVrms - kRoot2 * offset, range.lowestVrms, range.highestVrms);
    return {std::min(level, reduced), hint};
}

Held HoldOffsetBesideLevel(double offset, double level, quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    if (!SumExceedsRange(level, offset, bmBereich, tmVPP)) {
        return {offset, {}};
    }
    const double peakToPeak = tmVPP ? level : 2.0 * kRoot2 * level;
    const double room = (RangeOf(bmBereich).highestVpp - peakToPeak) / 2.0;
    // A level from a file may lie above its range: there the room is negative, and the offset gets its sign back later,
    // so that the instrument would put out the opposite voltage.
    // In Vrms the room may be larger than the offset: at 1 Vrms the 5 V that the user asked for would become 8.59 V on
    // the device under test.
    return {std::min(offset, std::max(room, 0.0)), SumHint(bmBereich, tmVPP, numbers)};
}

double RoundOffset(double magnitude, quint8 bmBereich) {
    if (bmBereich == 1) {
        return magnitude;
    }
    return ReadHeadNumber(FormatPicture(magnitude, bmBereich == 2 ? "0.000" : "0.00", '.'));
}

QString LevelToolTip(Truth tmVPP, const UserNumbers& numbers) {
    const QString unit = tmVPP ? QStringLiteral(" Vpp") : QStringLiteral(" Vrms");
    return u"Level range is from " + numbers.Picture(LowestLevelOfAll(tmVPP), "0.000") + unit + u" to " +
           numbers.Picture(HighestLevelOfAll(tmVPP), "0.00") + unit + u" (incl. 2X offset)";
}

QString OffsetToolTip(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    return u"Max offset in range" + RangeNumber(bmBereich) + u" is " + LargestOffsetText(bmBereich) + u" (level <= " +
           numbers.Picture(HighestLevel(RangeOf(bmBereich), tmVPP), "0.00") + (tmVPP ? u" Vpp)" : u" Vrms)");
}
