#pragma once

#include <QApplication>
#include <QMouseEvent>

#include "widgets/PictureBox.h"

// A pointer over a picture, at places in its user scale: also between two pixels, as on a dense screen.
struct PictureHands {
    PictureBox* picture;

    void Press(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonPress, x, y, button, button);
        Send(QEvent::MouseButtonRelease, x, y, button, {});
    }
    void Move(double x, double y, Qt::MouseButtons held = {}) { Send(QEvent::MouseMove, x, y, Qt::NoButton, held); }
    // With the left button, over a place on the way. A picture learns of the release by the move behind it.
    void Drag(double from, double to) {
        for (const double x : {from, (from + 3.0 * to) / 4.0, to}) {
            Move(x, 0.0, Qt::LeftButton);
        }
        Move(to, 0.0);
    }

    QImage Shown() { return picture->grab().toImage(); }
    QColor At(double x, double y) {
        const QImage shown = Shown();
        const QPointF place = Place(x, y) * shown.devicePixelRatio();
        return shown.pixelColor(static_cast<int>(place.x()), static_cast<int>(place.y()));
    }

  private:
    QPointF Place(double x, double y) const {
        return {(x - picture->ScaleLeft()) / picture->ScaleWidth() * picture->width(),
                (y - picture->ScaleTop()) / picture->ScaleHeight() * picture->height()};
    }
    void Send(QEvent::Type type, double x, double y, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, Place(x, y), picture->mapToGlobal(Place(x, y)), button, held, {});
        QApplication::sendEvent(picture, &event);
    }
};
