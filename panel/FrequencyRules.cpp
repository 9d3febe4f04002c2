#include "panel/FrequencyRules.h"

#include <algorithm>

#include "core/Enumerations.h"
#include "core/FrequencyDisplay.h"

namespace {
// An entry of 0.0000001 kHz is the lowest frequency; its product with 1000 is less by the last binary digit.
constexpr double kDust = 1.0e-12;
}  // namespace

HeldFrequency HoldFrequency(double entry, int unit) {
    const bool known = unit >= 0 && unit < static_cast<int>(kFrequencyUnits.size());
    const double hertz = entry * (known ? kFrequencyUnits[static_cast<std::size_t>(unit)].hertz : 1.0);
    if (hertz < kLowestHz * (1.0 - kDust)) {
        return {kLowestHz, true};
    }
    if (hertz > kHighestHz * (1.0 + kDust)) {
        return {kHighestHz, true};
    }
    return {std::clamp(hertz, kLowestHz, kHighestHz), false};
}

QString FrequencyRangeMessage(const UserNumbers& numbers) {
    return u"Frequencyrange: " + numbers.Picture(kLowestHz, "0.0000") + u" to " + numbers.Picture(kHighestHz, "0.0000");
}

QString FrequencyToolTip(quint8 bmSignal) {
    if (bmSignal < kSignalTriangular) {
        return QStringLiteral("The maximum frequency range is 15MHz");
    }
    if (bmSignal == kSignalTriangular) {
        return QStringLiteral("The maximum frequency range is 1MHz");
    }
    if (bmSignal < kSignalArbitrary4) {
        return QStringLiteral("The maximum frequency range is 100kHz");
    }
    if (bmSignal < kSignalWhiteNoise) {
        return QStringLiteral("The maximum frequency is 10MHz (sampling rate 40MHz)");
    }
    return QStringLiteral("The frequency can not be varied in noise mode");
}
