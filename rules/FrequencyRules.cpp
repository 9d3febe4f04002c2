#include "rules/FrequencyRules.h"

#include <algorithm>

#include "core/Enumerations.h"
#include "core/FrequencyDisplay.h"

namespace {
// An entry of 0.0000001 kHz is the lowest frequency; its product with 1000 is less by the last binary digit.
constexpr double kDust = 1.0e-12;
}  // namespace

Held HoldFrequency(double entry, int unit, const UserNumbers& numbers) {
    const bool known = unit >= 0 && unit < static_cast<int>(kFrequencyUnits.size());
    const double hertz = entry * (known ? kFrequencyUnits[static_cast<std::size_t>(unit)].hertz : 1.0);
    const double held = std::clamp(hertz, kLowestHz, kHighestHz);
    if (hertz >= kLowestHz * (1.0 - kDust) && hertz <= kHighestHz * (1.0 + kDust)) {
        return {held, {}};
    }
    return {held, u"Frequencyrange: " + numbers.Picture(kLowestHz, "0.0000") + u" to " +
                      numbers.Picture(kHighestHz, "0.0000")};
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
