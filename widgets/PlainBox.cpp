#include "widgets/PlainBox.h"

#include <QGridLayout>

#include "widgets/FollowFont.h"

namespace {
constexpr int kFrameButtons = 8;  // wide characters beside the title
}  // namespace

PlainBox::PlainBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons, QWidget* parent)
    : QMessageBox(icon, title, text, buttons, parent) {
    setTextFormat(Qt::PlainText);
    // A row of its own: a width of the text's label would keep a long text from being wrapped.
    auto* const rows = qobject_cast<QGridLayout*>(layout());
    auto* const room = new QWidget(this);
    rows->addWidget(room, rows->rowCount(), 0, 1, -1);
    FollowFont(room, [room, title] {
        room->setMinimumWidth(room->fontMetrics().horizontalAdvance(title + QString(kFrameButtons, u'm')));
    });
}
