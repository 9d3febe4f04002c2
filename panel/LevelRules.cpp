#include "panel/LevelRules.h"

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

}  // namespace

HeldLevel HoldLevel(double level, Truth tmVPP, bool amOn) {
    if (level < LowestLevelOfAll(tmVPP)) {
        return {LowestLevelOfAll(tmVPP), LevelBound::Lowest};
    }
    if (amOn && level > HighestAmLevel(tmVPP)) {
        return {HighestAmLevel(tmVPP), LevelBound::HighestWithAm};
    }
    if (!amOn && level > HighestLevelOfAll(tmVPP)) {
        return {HighestLevelOfAll(tmVPP), LevelBound::Highest};
    }
    return {level, LevelBound::None};
}

QString LevelMessage(LevelBound bound, Truth tmVPP, const UserNumbers& numbers) {
    switch (bound) {
        case LevelBound::Lowest:
            return u"Min. Level: " + numbers.Picture(LowestLevelOfAll(tmVPP), "0.0000");
        case LevelBound::Highest:
            return u"Max. Level: " + numbers.Picture(HighestLevelOfAll(tmVPP), "0.0000");
        case LevelBound::HighestWithAm:
            return u"Am-Modulation is On. Max. Level: " + numbers.Picture(HighestAmLevel(tmVPP), "0.0000");
        case LevelBound::None:
            break;
    }
    return {};
}

double ConvertLevel(double level, bool toVpp) { return toVpp ? level * kRoot2 : level / kRoot2; }

bool SumExceedsRange(double level, double offset, quint8 bmBereich, Truth tmVPP) {
    const double sum = (tmVPP ? 2.0 : kRoot2) * offset + level;
    return sum - HighestLevel(RangeOf(bmBereich), tmVPP) > kDustVolts;
}

double LevelBesideOffset(double level, double offset, quint8 bmBereich, Truth tmVPP) {
    const LevelRange& range = RangeOf(bmBereich);
    if (tmVPP) {
        return range.highestVpp - 2.0 * offset;
    }
    const double reduced = std::clamp(range.highestVrms - kRoot2 * offset, range.lowestVrms, range.highestVrms);
    return std::min(level, reduced);
}

double OffsetBesideLevel(double level, double offset, quint8 bmBereich, Truth tmVPP) {
    const double peakToPeak = tmVPP ? level : 2.0 * kRoot2 * level;
    const double room = (RangeOf(bmBereich).highestVpp - peakToPeak) / 2.0;
    // A level from a file may lie above its range: there the room is negative, and the offset gets its sign back later,
    // so that the instrument would put out the opposite voltage.
    // In Vrms the room may be larger than the offset: at 1 Vrms the 5 V that the user asked for would become 8.59 V on
    // the device under test.
    return std::min(offset, std::max(room, 0.0));
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

QString LargestOffsetMessage(quint8 bmBereich) {
    return u"Max Offset in Range" + RangeNumber(bmBereich) + u" is " + LargestOffsetText(bmBereich);
}

QString SumMessage(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers) {
    return u"2 X offset + output voltage is higher then the max. possible level Range" + RangeNumber(bmBereich) +
           u": " + numbers.Picture(HighestLevel(RangeOf(bmBereich), tmVPP), "0.00") + u'V';
}
