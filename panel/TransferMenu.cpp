#include "panel/TransferMenu.h"

#include "link/TransferTexts.h"

using End = TransferResult::End;

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
