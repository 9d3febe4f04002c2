#include "panel/ChangeMark.h"

#include <QPainter>

ChangeMark::ChangeMark(QWidget* control) : QWidget(control) {
    setObjectName(QStringLiteral("changed"));
    setAccessibleName(QStringLiteral("Changed, not set yet"));
}

void ChangeMark::Tell(const QString& reported) {
    const QString text = QStringLiteral("The instrument reported ") + reported;
    setToolTip(text);
    setAccessibleDescription(text);
    const int side = fontMetrics().height() * 2 / 5;
    setGeometry(0, 0, side, side);
    show();
}

void ChangeMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().windowText());
    painter.drawPolygon(QPolygon({{0, 0}, {width(), 0}, {0, height()}}));
}
