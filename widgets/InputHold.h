#pragma once

#include <QObject>

#include "platform/Desktop.h"

// While it is set, keys and clicks in all windows of the program do nothing but beep. Escape, closing, repainting and
// boxes that are modal to the whole program still act.
class InputHold : public QObject {
  public:
    explicit InputHold(Desktop& desktop) : desktop_(desktop) {}

    void Set(bool hold);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Desktop& desktop_;
};
