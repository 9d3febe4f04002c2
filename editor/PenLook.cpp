#include "editor/PenLook.h"

#include <QPixmap>

namespace {

constexpr int kSide = 32;  // logical pixels

void DrawPencil(QPainter& painter) {
    painter.drawPolygon(QPolygonF{{0, 0}, {3, 8}, {17, 22}, {22, 17}, {8, 3}});
    painter.drawLine(3, 8, 8, 3);
}

void DrawArrow(QPainter& painter) {
    painter.drawPolygon(QPolygonF{{0, 0}, {0, 13}, {3, 10}, {5, 15}, {8, 14}, {6, 9}, {10, 9}});
}

void DrawArrowAndCross(QPainter& painter) {
    DrawArrow(painter);
    painter.drawLine(14, 16, 25, 27);
    painter.drawLine(25, 16, 14, 27);
}

void DrawArrowAndSheets(QPainter& painter) {
    DrawArrow(painter);
    painter.drawRect(13, 14, 9, 11);
    painter.drawRect(17, 17, 9, 11);
}

void DrawArrowAndBoard(QPainter& painter) {
    DrawArrow(painter);
    painter.drawRect(13, 15, 13, 13);
    painter.drawRect(17, 12, 5, 4);
    painter.drawLine(16, 20, 23, 20);
    painter.drawLine(16, 24, 23, 24);
}

}  // namespace

const std::array<PenLook, 4> kPenLooks{{
    {"Set Point/Line", DrawPencil, true, "Two clicks draw a line; Escape drops it.",
     "Click to set a point, or to move it up or down."},
    {"Delete", DrawArrowAndCross, true, "Click to set one sample to 0.", "Click to remove a point."},
    {"Copy", DrawArrowAndSheets, false, "Drag to copy, leftwards mirrored; Escape drops it.",
     "Copying is for the memory; choose another pen."},
    {"Paste", DrawArrowAndBoard, true, "Drag the copy to its place; Escape drops it.",
     "Drag the copy to its place; Escape drops it."},
}};

// The point of work is the corner: some desktops take it in logical pixels, some in those of the device.
QCursor PenCursor(Pen pen, qreal ratio) {
    QPixmap shape((QSizeF(kSide, kSide) * ratio).toSize());
    shape.setDevicePixelRatio(ratio);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0.5, 0.5);  // level and upright strokes are sharp
    painter.setBrush(Qt::white);
    // A light rim first, so that the shape shows on a dark curve too.
    for (const QPen& ink : {QPen(Qt::white, 3.5), QPen(Qt::black, 1.4)}) {
        painter.setPen(ink);
        LookOf(pen).sign(painter);
    }
    painter.end();
    return QCursor(shape, 0, 0);
}
