#include "editor/PenLook.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr int kSide = 32;  // logical pixels
constexpr int kHot = 9;    // the point of work

void DrawSign(QPainter& painter, Pen pen) {
    switch (pen) {
        case Pen::Draw:  // a pencil
            painter.drawPolygon(QPolygonF{{14, 14}, {16, 20}, {25, 29}, {29, 25}, {20, 16}});
            break;
        case Pen::Delete:
            painter.drawLine(16, 16, 27, 27);
            painter.drawLine(27, 16, 16, 27);
            break;
        case Pen::Copy:  // two sheets
            painter.drawRect(15, 15, 9, 11);
            painter.drawRect(19, 18, 9, 11);
            break;
        case Pen::Paste:  // a sheet on a board
            painter.drawRect(15, 16, 13, 13);
            painter.drawRect(19, 13, 5, 4);
            painter.drawLine(18, 21, 25, 21);
            painter.drawLine(18, 25, 25, 25);
            break;
    }
}

}  // namespace

QCursor PenCursor(Pen pen) {
    // Not denser than the screen's logical pixels: not every window system scales the hot spot with the shape.
    QPixmap shape(kSide, kSide);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    // A light rim first, so that the shape shows on a dark curve too.
    for (const QPen& ink : {QPen(Qt::white, 3.5), QPen(Qt::black, 1.4)}) {
        painter.setPen(ink);
        painter.drawLine(kHot, 1, kHot, kHot - 3);
        painter.drawLine(kHot, kHot + 3, kHot, 2 * kHot - 1);
        painter.drawLine(1, kHot, kHot - 3, kHot);
        painter.drawLine(kHot + 3, kHot, 2 * kHot - 1, kHot);
        DrawSign(painter, pen);
    }
    painter.end();
    return QCursor(shape, kHot, kHot);
}

QString PenHint(Pen pen, EditTarget target) {
    const bool memory = target == EditTarget::Memory;
    switch (pen) {
        case Pen::Draw:
            return memory ? QStringLiteral("Click twice to draw a straight line; a right click drops it.")
                          : QStringLiteral("Click to set a point, or to move the point at that address up or down.");
        case Pen::Delete:
            return memory ? QStringLiteral("Click to set one sample to 0.")
                          : QStringLiteral("Click to remove a point.");
        case Pen::Copy:
            return QStringLiteral("Drag to copy a stretch; from right to left it is taken mirrored.");
        default:
            return memory ? QStringLiteral("Drag the copied stretch to its place; it is written there on release.")
                          : QStringLiteral("Drag the copied stretch to its place; each sample becomes a point.");
    }
}
