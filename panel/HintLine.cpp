#include "panel/HintLine.h"

#include <QAccessible>

#include "core/Text.h"

namespace {
constexpr QRgb kYellow = qRgb(255, 255, 0);
constexpr QRgb kGreen = qRgb(0, 255, 0);
constexpr QRgb kDarkRed = qRgb(128, 0, 0);
constexpr int kTickMs = 250;
constexpr quint8 kLastTick = 40;
}  // namespace

HintLine::HintLine(Desktop& desktop, QWidget* parent) : QLabel(parent), desktop_(desktop) {
    setObjectName(QStringLiteral("Label8"));
    setAccessibleDescription(QStringLiteral("Hint line"));  // its name is what it says
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setMargin(4);
    // The longest hint must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    ShowGround(kYellow);
    Timer3.setObjectName(QStringLiteral("Timer3"));
    Timer3.setInterval(kTickMs);
    connect(&Timer3, &QTimer::timeout, this, &HintLine::Timer3_Timer);
}

void HintLine::FlashMessage(const QString& text) {
    desktop_.Beep();
    Timer3.stop();
    setText(TrimBlanks(text));
    QAccessibleEvent alert(this, QAccessible::Alert);  // to those who do not see it blink
    QAccessible::updateAccessibility(&alert);
    FlashCount = 0;
    Timer3.start();
}

void HintLine::ShowText(const QString& text) {
    Timer3.stop();
    ShowGround(kYellow);
    setText(text);
    repaint();
}

void HintLine::Timer3_Timer() {
    ++FlashCount;
    ShowGround(FlashCount % 2 == 0 ? kGreen : kYellow);
    if (FlashCount > kLastTick) {
        ShowGround(kYellow);
        clear();
        Timer3.stop();
        FlashCount = 0;
    }
}

void HintLine::ShowGround(QRgb colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(colour));
    colours.setColor(QPalette::WindowText, QColor(kDarkRed));
    setPalette(colours);
}
