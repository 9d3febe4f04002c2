#include "overview/OverviewText.h"

#include <QStringList>

#include "core/Enumerations.h"
#include "core/FrequencyDisplay.h"

namespace {

QString Line(const char* head, const EnumerationRow& row) {
    return QLatin1StringView(head) + QLatin1StringView(row.overview);
}

QStringList SweepLines(const PanelState& panel, const UserNumbers& numbers) {
    const QString sweep = Line("Sweep: ", RowOf(kSweeps, panel.bmWobbel));
    if (panel.bmWobbel == kSweepOff) {
        return {sweep};
    }
    return {sweep, QStringLiteral("Sweep start freq: ") + numbers.Picture(panel.msWobbel, "0.0000"),
            QStringLiteral("Sweep stop freq: ") + numbers.Picture(panel.meWobbel, "0.0000"),
            QStringLiteral("Sweep time: ") + numbers.Picture(panel.mtWobbel, "0.00")};
}

QStringList AmplitudeModulationLines(const PanelState& panel, const UserNumbers& numbers) {
    const QString modulation = Line("Amplitude modulation: ", RowOf(kAmplitudeModulations, panel.bmAmpMod));
    if (panel.bmAmpMod == kAmOff) {
        return {modulation};
    }
    return {modulation, QStringLiteral("Modulation depth: ") + numbers.Picture(panel.bmAmDepth, "0.0")};
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

}  // namespace

QString OverviewText(const PanelState& panel, const UserNumbers& numbers) {
    const QString emptyLine;
    QStringList lines = SweepLines(panel, numbers) << emptyLine;
    lines << AmplitudeModulationLines(panel, numbers) << emptyLine;
    lines << ShiftKeyingLines(panel, numbers) << emptyLine;
    lines << (panel.tmIntRef ? QStringLiteral("Reference frequency: Internal")
                             : QStringLiteral("Reference frequency: External"));
    lines << Line("Mode: ", RowOf(kModes, panel.bmMode));
    return lines.join(QStringLiteral("\r\n"));
}
