#include "panel/TransferMenu.h"

using End = TransferResult::End;

namespace {

QString PointCount(const MemorySize& size) { return QStringLiteral("%1 points").arg(size.LastAdr + 1); }

QString DifferenceText(const MemorySize& size, const TransferResult& result) {
    return QStringLiteral("%1 of %2 differ, the first at address %3: %4 in the PC, %5 in the instrument")
        .arg(result.differing)
        .arg(PointCount(size))
        .arg(result.first->address)
        .arg(result.first->here)
        .arg(result.first->there, 0, 'g', 15);
}

}  // namespace

// Only a stop by the user: what else ends a transfer early is shown elsewhere, or the window closes.
void TransferMenu::ShowStop(const MemorySize& size, const TransferResult& result, const QString& what) {
    if (result.end == End::Stopped) {
        flash_(QStringLiteral("Stopped: %1 of %2 %3").arg(result.points).arg(PointCount(size), what));
    }
}

void TransferMenu::Read(const MemorySize& size) { ShowStop(size, memory_.ReadArb(size), QStringLiteral("read")); }

void TransferMenu::Send(const MemorySize& size) {
    const TransferResult result = memory_.SendArb(size);
    ShowStop(size, result, QStringLiteral("sent"));
    if (result.end == End::Whole && mnuverify_.isChecked()) {
        Compare(size);
    }
}

void TransferMenu::Compare(const MemorySize& size) {
    const TransferResult result = memory_.CompareArb(size);
    const QString title = QString::fromLatin1(size.compareTitle);
    const QString endedAt = QStringLiteral("Comparison ended at address %1: %2").arg(result.points);
    switch (result.end) {
        case End::Whole:
            if (result.first) {
                desktop_.MessageBox(DifferenceText(size, result), title);
            } else {
                desktop_.Information(u"all " + PointCount(size) + u" agree", title);
            }
            break;
        case End::Stopped:
            ShowStop(size, result,
                     result.first ? QStringLiteral("compared, %1 differ").arg(result.differing)
                                  : QStringLiteral("compared, all agree"));
            break;
        case End::Fault:
            flash_(endedAt.arg(QStringLiteral("no reply")));
            break;
        case End::NoNumber:
            desktop_.MessageBox(endedAt.arg(QStringLiteral("no number in the reply")), title);
            break;
        case End::Abandoned:
            break;
    }
}
