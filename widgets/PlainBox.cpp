#include "widgets/PlainBox.h"

#include <QLabel>
#include <algorithm>

#include "widgets/FollowFont.h"

namespace {
constexpr int kFrameButtons = 8;  // wide characters beside the title
constexpr int kWidestText = 70;   // characters
}  // namespace

PlainBox::PlainBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons, QWidget* parent)
    : QMessageBox(icon, title, text, buttons, parent) {
    setTextFormat(Qt::PlainText);
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr) {
        return;
    }
    FollowFont(label, [this, label] {
        const QFontMetrics metrics = label->fontMetrics();
        int width = metrics.horizontalAdvance(windowTitle() + QString(kFrameButtons, u'm'));
        for (const QString& line : QMessageBox::text().split(u'\n')) {
            width = std::max(width, metrics.horizontalAdvance(line + u' '));
        }
        label->setMinimumWidth(std::min(width, metrics.averageCharWidth() * kWidestText));
    });
}
