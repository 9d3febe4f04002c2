#pragma once

#include <QProxyStyle>
#include <QPushButton>

// The flat look of the controls over the toolkit's own style, which keeps the sizes and the behaviour. All colours come
// from the palette at each painting; the edge of an enabled control has a contrast of at least 3 to what is around it.
class ControlStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ControlStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

  private:
    void DrawArrow(PrimitiveElement arrow, const QRect& place, const QStyleOption& option, QPainter& painter,
                   bool enabled) const;
    void DrawComboBox(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
    void DrawSpinBox(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
    void DrawScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
};

// Makes a button the visible main action of its form: larger, and in the colour of selections. Enter presses it no more
// than another one.
void MakeMainAction(QPushButton& button);
