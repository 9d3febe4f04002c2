#pragma once

#include <QFocusFrame>
#include <QKeyEvent>
#include <QPointF>
#include <QPointer>
#include <QWidget>

#include "widgets/PictureBox.h"

// Lets the keyboard do in a picture what the mouse does there. The Tab key gives the picture the focus, which a
// frame around it shows, and keys move a pointer and its buttons. To the picture they are those of a mouse.
class PictureKeys : public QObject {
  public:
    // Lives as long as the picture.
    explicit PictureKeys(PictureBox& picture);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool UseKey(const QKeyEvent& key);
    bool UseButtonKey(const QKeyEvent& key);
    void FocusGained();
    void FocusLost(Qt::FocusReason reason);
    void Click(Qt::MouseButton button);
    void Hold(bool held);
    void Move(double across, double down);
    void ShowMark();
    void Send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held);

    PictureBox& picture_;
    QPointF place_{-1.0, -1.0};    // of the pointer, logical pixels; outside until it has one
    bool held_ = false;            // the keyboard holds the left button
    QPointer<QFocusFrame> frame_;  // while the picture has the focus; belongs to the form
    QWidget* mark_;                // around the pointer meanwhile
};
