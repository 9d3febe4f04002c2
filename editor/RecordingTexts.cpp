#include "editor/RecordingTexts.h"

#include <algorithm>

#include "recording/Units.h"

namespace {

QString Seconds(double value, const UserNumbers& numbers) {
    return recording::WithPrefix(value, QStringLiteral("s")).replace(u'.', QChar(ushort{numbers.DecimalSeparator}));
}

QString IntervalOf(const recording::Timing& timing, const UserNumbers& numbers) {
    if (timing.interval) {
        return Seconds(*timing.interval, numbers);
    }
    return timing.times.empty() ? QStringLiteral("unknown") : QStringLiteral("not even");
}

}  // namespace

QStringList TextsOfBlocks(const recording::Recording& recording) {
    QStringList texts;
    for (const recording::Block& block : recording.blocks) {
        texts += QStringLiteral("%1: lines %2 to %3, %4 rows")
                     .arg(texts.size() + 1)
                     .arg(block.firstLine)
                     .arg(block.lastLine)
                     .arg(block.rows);
    }
    return texts;
}

QString TextOfFound(const recording::Recording& recording, const recording::Column& column,
                    const UserNumbers& numbers) {
    const recording::Timing& timing = column.timing;
    QString text = QStringLiteral("%1 rows in lines %2 to %3. Sample interval: %4. Duration: %5. ")
                       .arg(column.values.size())
                       .arg(column.firstLine)
                       .arg(column.lastLine)
                       .arg(IntervalOf(timing, numbers),
                            timing.duration ? Seconds(*timing.duration, numbers) : QStringLiteral("unknown"));
    text += QStringLiteral("Lines left out as header or remarks: %1.").arg(recording.linesLeftOut);
    if (column.rowsLeftOut > 0) {
        text += QStringLiteral(" Rows left out at the edges, without a value: %1.").arg(column.rowsLeftOut);
    }
    return text;
}

QString TextOfAddressed(const recording::Recording& recording) {
    const auto [lowest, highest] = std::ranges::minmax(recording.addressed, {}, &recording::AddressedSample::address);
    return QStringLiteral(
               "A table as \"Save as CSV...\" writes it: %1 samples at the addresses %2 to %3. They are taken as they "
               "stand.")
        .arg(recording.addressed.size())
        .arg(lowest.address)
        .arg(highest.address);
}
