#include "widgets/PlainBox.h"

#include <QLabel>
#include <algorithm>

namespace {
constexpr int kFrameButtons = 8;  // wide characters beside the title
constexpr int kWidestText = 70;   // characters
}  // namespace

PlainBox::PlainBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons, QWidget* parent)
    : QMessageBox(icon, title, text, buttons, parent) {
    setTextFormat(Qt::PlainText);
    const QFontMetrics metrics = fontMetrics();
    int width = metrics.horizontalAdvance(title + QString(kFrameButtons, u'm'));
    for (const QString& line : text.split(u'\n')) {
        width = std::max(width, metrics.horizontalAdvance(line + u' '));
    }
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label != nullptr) {
        label->setMinimumWidth(std::min(width, metrics.averageCharWidth() * kWidestText));
    }
}
