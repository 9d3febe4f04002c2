#include "link/TransferTexts.h"

#include <algorithm>

QString ProgressText(const TransferProgress& progress) {
    constexpr qint64 kSecondsPerMinute = 60;
    QString percent = QStringLiteral("%1 %").arg(progress.percent);
    if (!progress.leftMs) {
        return percent;
    }
    const qint64 seconds = std::max<qint64>((*progress.leftMs + 500) / 1000, 1);
    const qint64 minutes = seconds / kSecondsPerMinute;
    const QString time = minutes > 0 ? QStringLiteral("%1 min %2 s").arg(minutes).arg(seconds % kSecondsPerMinute)
                                     : QStringLiteral("%1 s").arg(seconds);
    return QStringLiteral("%1, %2 left").arg(percent, time);
}

QString PointCount(const MemorySize& size) { return QStringLiteral("%1 points").arg(size.LastAdr + 1); }

QString DifferenceText(const MemorySize& size, const TransferResult& result) {
    return QStringLiteral("%1 of %2 differ, the first at address %3: %4 in the PC, %5 in the instrument")
        .arg(result.differing)
        .arg(PointCount(size))
        .arg(result.first->address)
        .arg(result.first->here)
        .arg(result.first->there, 0, 'g', 15);
}
