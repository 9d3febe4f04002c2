#include "waveform/RecordedWave.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/FrequencyRange.h"
#include "core/LevelRange.h"
#include "recording/Resample.h"
#include "recording/Units.h"
#include "waveform/Samples.h"
#include "waveform/TraceReply.h"

namespace {

constexpr double kHighestMemoryHz = 10e6;
constexpr double kLevelSteps = 1e4;  // in a volt, as the panel shows it

double ToLevelStep(double volts) { return std::round(volts * kLevelSteps) / kLevelSteps; }

// Volts that 1 of the unit stands for.
std::optional<double> VoltsOf(const QString& unit) {
    if (unit.isEmpty()) {
        return 1.0;
    }
    const auto known = recording::ReadUnit(unit.toStdString());
    const bool isVoltage = known && recording::UnitSymbol(known->base) == u"V";
    return isVoltage ? std::optional(known->scale) : std::nullopt;
}

QString RemarkOnFrequency(double frequency) {
    if (frequency > kHighestMemoryHz) {
        return QStringLiteral("The instrument plays a memory at 10 MHz at most.");
    }
    return frequency < kLowestHz ? QStringLiteral("The instrument has 0.0001 Hz at least.") : QString();
}

QString RemarkOnLevel(double level, double offset) {
    const LevelRange& range = RangeOf(LevelRangeNumber(level, kTrue));
    if (level < kLevelRanges.front().lowestVpp) {
        return QStringLiteral("The instrument has 0.02 Vpp at least.");
    }
    if (!(level <= kLevelRanges.back().highestVpp)) {
        return QStringLiteral("The instrument has 20 Vpp at most.");
    }
    const double most = std::min(range.largestOffset, ToLevelStep((range.highestVpp - level) / 2.0));
    return std::fabs(offset) > most ? QStringLiteral("At this level the instrument has an offset of %1 mV at most.")
                                          .arg(std::floor(most * 1000.0))
                                    : QString();
}

void SpreadOver(double half, const std::vector<double>& values, RecordedWave& wave) {
    const auto [lowest, highest] = std::ranges::minmax(values);
    wave.atZero = std::midpoint(lowest, highest);
    // Halves, as the whole distance may be beyond all numbers.
    const std::vector<double> spread = recording::Spread(values, -half, half);
    if (!spread.empty()) {
        wave.step = (highest / 2.0 - lowest / 2.0) / half;
        std::ranges::transform(spread, wave.samples.begin(), HeldSample);
    }
}

void KeepZero(const std::vector<double>& values, RecordedWave& wave) {
    const auto [lowest, highest] = std::ranges::minmax(values);
    const double most = std::max(std::fabs(lowest), std::fabs(highest));
    if (most > 0.0) {
        wave.step = most / kHighestSample;
        std::ranges::transform(values, wave.samples.begin(),
                               [most](double value) { return HeldSample(value / most * kHighestSample); });
    }
}

}  // namespace

RecordedPart PartOf(const recording::Column& column, std::size_t first, std::size_t last) {
    const std::size_t rows = last - first + 1;
    const recording::Timing& timing = column.timing;
    RecordedPart part{column.values.subspan(first, rows), {}, std::nullopt};
    if (timing.interval) {
        part.duration = *timing.interval * static_cast<double>(rows - 1);
    } else if (!timing.times.empty()) {
        part.times = timing.times.subspan(first, rows);
        if (timing.duration) {
            const double whole = timing.times.back() - timing.times.front();
            part.duration = *timing.duration * ((part.times.back() - part.times.front()) / whole);
        }
    }
    return part;
}

RecordedWave MakeWave(const RecordedPart& part, std::size_t addresses, RecordedScale scale) {
    const std::vector<double> values = recording::Resample(part.values, part.times, addresses);
    RecordedWave wave;
    wave.samples.resize(addresses);
    if (part.duration && *part.duration > 0.0) {
        wave.duration = *part.duration * recording::Lasting(part.values.size(), part.times.empty(), addresses);
    }
    if (scale == RecordedScale::Zero) {
        KeepZero(values, wave);
    } else {
        SpreadOver(scale == RecordedScale::Trace ? kTraceHeight : kHighestSample, values, wave);
    }
    return wave;
}

Reproduction ReproductionOf(const RecordedWave& wave, const QString& unit, const MemorySize& size) {
    Reproduction result;
    if (wave.duration) {
        const double addresses = size.lastTableAddress + 1;
        result.frequency = static_cast<double>(wave.samples.size()) / addresses / *wave.duration;
        result.remarks += RemarkOnFrequency(*result.frequency);
    } else {
        result.remarks += QStringLiteral("The recording tells no time, so the frequency is unknown.");
    }
    const std::optional<double> volts = VoltsOf(unit);
    if (!volts) {
        result.remarks += QStringLiteral("The values are in %1: level and offset are unknown.").arg(unit);
    } else {
        result.offset = ToLevelStep(wave.atZero * *volts);
        if (unit.isEmpty()) {
            result.remarks += QStringLiteral("The file names no unit: the values count as volts.");
        }
        if (wave.step) {
            result.level = ToLevelStep(2.0 * kHighestSample * *wave.step * *volts);
            result.remarks += RemarkOnLevel(*result.level, *result.offset);
        }
    }
    if (!wave.step) {
        result.remarks += QStringLiteral("The part is flat: all samples are 0, at any level.");
    }
    result.remarks.removeAll(QString());
    return result;
}
