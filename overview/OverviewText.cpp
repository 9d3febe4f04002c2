#include "overview/OverviewText.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "core/Enumerations.h"
#include "core/FrequencyDisplay.h"

namespace {

QStringList SweepLines(const PanelState& panel, const UserNumbers& numbers) {
    if (panel.bmWobbel == kSweepOff) {
        return {QStringLiteral("Sweep: Off")};
    }
    return {panel.bmWobbel == kSweepLinear ? QStringLiteral("Sweep: Linear") : QStringLiteral("Sweep: Logarithmic"),
            QStringLiteral("Sweep start freq: ") + numbers.Picture(panel.msWobbel, "0.0000"),
            QStringLiteral("Sweep stop freq: ") + numbers.Picture(panel.meWobbel, "0.0000"),
            QStringLiteral("Sweep time: ") + numbers.Picture(panel.mtWobbel, "0.00")};
}

QStringList AmplitudeModulationLines(const PanelState& panel, const UserNumbers& numbers) {
    if (panel.bmAmpMod == kAmOff) {
        return {QStringLiteral("Amplitude modulation: Off")};
    }
    return {panel.bmAmpMod == kAmExternal ? QStringLiteral("Amplitude modulation: External")
                                          : QStringLiteral("Amplitude modulation: Internal"),
            QStringLiteral("Modulation depth: ") + numbers.Picture(panel.bmAmDepth, "0.0")};
}

QStringList ShiftKeyingLines(const PanelState& panel, const UserNumbers& numbers) {
    if (panel.bmFMod == kShiftKeyingOff) {
        return {QStringLiteral("FSK/PSK modulation: Off")};
    }
    if (panel.bmFMod == kPsk) {
        return {QStringLiteral("PSK modulation: On"),
                QStringLiteral("Phase0 : ") + numbers.Picture(panel.mPhasea, "0.0"),
                QStringLiteral("Phase1 : ") + numbers.Picture(panel.mPhaseb, "0.0")};
    }
    // Both in the carrier's unit, so that the eye compares like with like.
    const FrequencyUnit& unit = kFrequencyUnits.at(static_cast<std::size_t>(FrequencyUnitIndex(panel.mcFreq)));
    const auto frequency = [&](double hertz) -> QString {
        return numbers.Picture(hertz / unit.hertz, unit.picture) + QLatin1String(unit.name);
    };
    return {QStringLiteral("FSK modulation: On"), QStringLiteral("Carrier frequency: ") + frequency(panel.mcFreq),
            QStringLiteral("Hop frequency: ") + frequency(panel.mhFreq)};
}

QString ModeLine(quint8 bmMode) {
    static constexpr std::array<const char*, 5> kNames{"Free running", "Gated 1", "Gated 0", "Triggered positive slope",
                                                       "Triggered negative slope"};
    const auto row = std::min<std::size_t>(bmMode, kNames.size() - 1);
    return QStringLiteral("Mode: ") + QLatin1String(kNames.at(row));
}

}  // namespace

QString OverviewText(const PanelState& panel, const UserNumbers& numbers) {
    const QString emptyLine;
    QStringList lines = SweepLines(panel, numbers) << emptyLine;
    lines << AmplitudeModulationLines(panel, numbers) << emptyLine;
    lines << ShiftKeyingLines(panel, numbers) << emptyLine;
    lines << (panel.tmIntRef ? QStringLiteral("Reference frequency: Internal")
                             : QStringLiteral("Reference frequency: External"));
    lines << ModeLine(panel.bmMode);
    return lines.join(QStringLiteral("\r\n"));
}
