#pragma once

#include <QApplication>
#include <QMouseEvent>

#include "platform/PictureBox.h"

// A pointer over a picture, at places in its user scale: also between two pixels, as on a dense screen.
class PictureHands {
  public:
    explicit PictureHands(PictureBox* picture) : picture_(*picture) {}

    void Press(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonPress, x, y, button, button);
        Send(QEvent::MouseButtonRelease, x, y, button, {});
    }
    void Move(double x, double y, Qt::MouseButtons held = {}) { Send(QEvent::MouseMove, x, y, Qt::NoButton, held); }
    // With the left button, over a place on the way. A picture learns of the release by the move behind it.
    void Drag(double from, double to) {
        Send(QEvent::MouseButtonPress, from, 0.0, Qt::LeftButton, Qt::LeftButton);
        for (const double x : {from, (from + 3.0 * to) / 4.0, to}) {
            Move(x, 0.0, Qt::LeftButton);
        }
        Send(QEvent::MouseButtonRelease, to, 0.0, Qt::LeftButton, {});
        Move(to, 0.0);
    }

    QImage Shown() { return picture_.grab().toImage(); }
    QColor At(double x, double y) { return Shown().pixelColor(Place(x, y).toPoint()); }

  private:
    QPointF Place(double x, double y) const {
        return {(x - picture_.ScaleLeft()) / picture_.ScaleWidth() * picture_.width(),
                (y - picture_.ScaleTop()) / picture_.ScaleHeight() * picture_.height()};
    }
    void Send(QEvent::Type type, double x, double y, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF place = Place(x, y);
        QMouseEvent event(type, place, picture_.mapToGlobal(place), button, held, {});
        QApplication::sendEvent(&picture_, &event);
    }

    PictureBox& picture_;
};
