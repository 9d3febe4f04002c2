#pragma once

#include <QLabel>
#include <QTimer>

#include "platform/Desktop.h"

// The one-line hint area of Main, Label8: the only way in which the panel reports a rule.
class HintLine : public QLabel {
    Q_OBJECT

  public:
    HintLine(Desktop& desktop, QWidget* parent);

    // Beeps and shows the text for 41 ticks of 250 ms, changing colour at each. A new text starts the time again.
    void FlashMessage(const QString& text);

    // A text that stands until it is taken away, in place of a message; empty to take it away. Painted at once.
    void ShowText(const QString& text);

  private:
    void Timer3_Timer();
    void ShowGround(QRgb colour);

    Desktop& desktop_;
    QTimer Timer3{this};
    quint8 FlashCount = 0;
};
