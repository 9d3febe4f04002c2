#include "panel/TransferBar.h"

#include <algorithm>
#include <chrono>

#include "widgets/Controls.h"

namespace {

constexpr std::chrono::milliseconds kLook{200};
constexpr int kLeastWidth = 240;
constexpr int kTextMargin = 24;
constexpr qint64 kSecondsPerMinute = 60;

}  // namespace

QString ProgressText(const TransferProgress& progress) {
    const QString percent = QStringLiteral("%1 %").arg(progress.percent);
    if (!progress.leftMs) {
        return percent;
    }
    const qint64 seconds = std::max<qint64>((*progress.leftMs + 500) / 1000, 1);
    const qint64 minutes = seconds / kSecondsPerMinute;
    const QString time = minutes > 0 ? QStringLiteral("%1 min %2 s").arg(minutes).arg(seconds % kSecondsPerMinute)
                                     : QStringLiteral("%1 s").arg(seconds);
    return QStringLiteral("%1, %2 left").arg(percent, time);
}

TransferBar::TransferBar(std::function<TransferProgress()> progress, QWidget* parent)
    : QProgressBar(parent), progress_(std::move(progress)) {
    Named(this, QStringLiteral("status"), QStringLiteral("Progress of the transfer"));
    setToolTip(QStringLiteral("Escape stops the transfer after the current point"));
    setMinimumWidth(
        std::max(kLeastWidth, fontMetrics().horizontalAdvance(ProgressText({100, 3'599'000})) + kTextMargin));
    look_.setInterval(kLook);
    connect(&look_, &QTimer::timeout, this, &TransferBar::ShowProgress);
}

void TransferBar::Begin(int last) {
    setRange(0, last);
    setValue(0);
    ShowProgress();
    setVisible(true);
    look_.start();
}

void TransferBar::ShowPoint(int address) {
    setValue(address);
    ShowProgress();
    repaint();
}

void TransferBar::End() {
    look_.stop();
    setVisible(false);
}

void TransferBar::ShowProgress() {
    const QString text = ProgressText(progress_());
    if (text != format()) {
        setFormat(text);
    }
}
