#include "rules/LevelRules.h"

#include <algorithm>
#include <numbers>

namespace {

// Of the instrument, over all its ranges.
double LowestLevelOfAll(Truth tmVPP) { return LowestLevel(kLevelRanges.front(), tmVPP); }
double HighestLevelOfAll(Truth tmVPP) { return HighestLevel(kLevelRanges.back(), tmVPP); }
// Amplitude modulation doubles the peak, so the level may be half.
double HighestAmLevel(Truth tmVPP) { return HighestLevelOfAll(tmVPP) / 2.0; }

constexpr double kRoot2 = std::numbers::sqrt2;

bool SumExceedsRange(double level, double offset, quint8 bmBereich, Truth tmVPP) {
    const double sum = (tmVPP ? 2.0 : kRoot2) * offset + level;
    return sum > HighestLevel(RangeOf(bmBereich), tmVPP);
}

QString SumHint(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    const LevelRange& range = RangeOf(bmBereich);
    return u"2 X offset + output voltage is higher then the max. possible level Range" +
           QLatin1StringView(range.number) + u": " + numbers.Picture(HighestLevel(range, tmVPP), "0.00") + u'V';
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
    const LevelRange& range = RangeOf(bmBereich);
    if (offset > range.largestOffset) {
        return {range.largestOffset, u"Max Offset in Range" + QLatin1StringView(range.number) + u" is " +
                                         QLatin1StringView(range.largestOffsetText)};
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
    const char* const picture = RangeOf(bmBereich).offsetPicture;
    return picture != nullptr ? ReadHeadNumber(FormatPicture(magnitude, picture, '.')) : magnitude;
}

QString LevelToolTip(Truth tmVPP, const UserNumbers& numbers) {
    const QString unit = tmVPP ? QStringLiteral(" Vpp") : QStringLiteral(" Vrms");
    return u"Level range is from " + numbers.Picture(LowestLevelOfAll(tmVPP), "0.000") + unit + u" to " +
           numbers.Picture(HighestLevelOfAll(tmVPP), "0.00") + unit + u" (incl. 2X offset)";
}

QString OffsetToolTip(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    const LevelRange& range = RangeOf(bmBereich);
    return u"Max offset in range" + QLatin1StringView(range.number) + u" is " +
           QLatin1StringView(range.largestOffsetText) + u" (level <= " +
           numbers.Picture(HighestLevel(range, tmVPP), "0.00") + (tmVPP ? u" Vpp)" : u" Vrms)");
}
