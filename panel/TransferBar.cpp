#include "panel/TransferBar.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>

#include "link/TransferTexts.h"
#include "widgets/Contrast.h"
#include "widgets/Controls.h"
#include "widgets/FollowFont.h"

namespace {

constexpr std::chrono::milliseconds kLook{200};
constexpr int kLeastWidth = 240;
constexpr int kTextMargin = 24;
constexpr double kTint = 0.4;  // of the bar's colour in its ground

}  // namespace

TransferBar::TransferBar(std::function<TransferProgress()> progress, QWidget* parent)
    : QProgressBar(parent), progress_(std::move(progress)) {
    Named(this, QStringLiteral("status"), QStringLiteral("Progress of the transfer"));
    setToolTip(QStringLiteral("Escape stops the transfer after the current point"));
    FollowFont(this, [this] {
        setMinimumWidth(
            std::max(kLeastWidth, fontMetrics().horizontalAdvance(ProgressText({100, 3'599'000})) + kTextMargin));
    });
    TakeColours();
    look_.setInterval(kLook);
    connect(&look_, &QTimer::timeout, this, &TransferBar::ShowProgress);
}

void TransferBar::changeEvent(QEvent* event) {
    QProgressBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        TakeColours();
    }
}

// The text stands on the bar and on what is left of it. The usual bar is too near to white and to black for either: a
// tint of the ground is not.
void TransferBar::TakeColours() {
    const QPalette theme = QApplication::palette(this);
    const QColor ground = theme.color(QPalette::Base);
    const QColor bar = theme.color(QPalette::Highlight);
    QPalette colours;  // all others go on to follow the theme
    colours.setColor(QPalette::Highlight, Mixed(ground, bar, kTint));
    colours.setColor(QPalette::HighlightedText, theme.color(QPalette::Text));
    setPalette(colours);
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
