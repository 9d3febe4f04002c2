#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QPolygonF>
#include <QRegion>
#include <QString>
#include <QWidget>
#include <span>

// A picture that its form draws on in a user scale of its own. What is drawn stays until it is drawn over; at another
// size it is shown scaled until it is drawn again.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    class Drawing;

    // The paper is light in every desktop theme, so that black strokes read on it.
    static constexpr QColor kBackColor{250, 250, 246};
    static constexpr QColor kForeColor{0, 0, 0};

    explicit PictureBox(QWidget* parent = nullptr);

    // Colour of an empty picture: of the next Cls, and of what is shown before anything is drawn.
    void SetBackColor(const QColor& color);

    // User coordinates: `left` at the left edge and left + width at the right edge, `top` at the top edge and
    // top + height at the bottom edge. Width and height may be negative but not 0. Counts for what is drawn and for
    // the positions of the pointer from now on.
    void SetScale(double left, double width, double top, double height);
    double ScaleLeft() const { return scaleLeft_; }
    double ScaleWidth() const { return scaleWidth_; }
    double ScaleTop() const { return scaleTop_; }
    double ScaleHeight() const { return scaleHeight_; }

    // True if the next time it is painted RedrawNeeded comes anyway, so that nothing need be drawn before: so at the
    // start, and on a tab that was hidden while the window got another size.
    bool RedrawIsDue() const { return settledFor_ != PixelSize(); }

  Q_SIGNALS:
    // Positions of the pointer in user coordinates. While a button is held, moves outside of the picture come too; a
    // press of another button there does not. Buttons: 1 left, 2 right, 4 middle; a move gives the sum of those held, 0
    // for none. A release counts as a move, so that a drag ends where and when the button is let go.
    void MouseDown(int button, float x, float y);
    void MouseMove(int buttons, float x, float y);

    // The content no longer fits, because the size or the density of the pixels has changed. Sent while the widget is
    // being painted: a handler draws the picture, now or soon, and does nothing else.
    void RedrawNeeded();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override { mouseMoveEvent(event); }
    void paintEvent(QPaintEvent* event) override;

  private:
    QSize PixelSize() const;
    void FitImage();
    QPointF ToPixels(double x, double y) const {
        return {(x - scaleLeft_) / scaleWidth_ * width(), (y - scaleTop_) / scaleHeight_ * height()};
    }
    QPointF ToUser(const QPointF& pixel) const;

    double scaleLeft_ = 0.0;
    double scaleWidth_ = 1.0;
    double scaleTop_ = 0.0;
    double scaleHeight_ = 1.0;
    QColor backColor_ = kBackColor;
    QImage image_;      // in device pixels; null before the first drawing
    QSize settledFor_;  // device pixels; the size for which the content was cleared, or asked for
};

// One redraw: made for its duration, and shown at its end. Coordinates are in the user scale of the box; what lies
// outside of the picture is clipped. No events are served and no second one is made meanwhile.
class PictureBox::Drawing {
  public:
    // Copy paints over what is there. The same stroke drawn twice in Invert restores every pixel.
    enum class Mode { Invert = 10, Copy = 13 };

    explicit Drawing(PictureBox& box);
    ~Drawing();
    Q_DISABLE_COPY_MOVE(Drawing)

    Mode DrawMode = Mode::Copy;  // of all but Cls and Print, which always copy
    double DrawWidth = 1.0;      // width of the strokes and dots, logical pixels
    QColor ForeColor = kForeColor;
    QString FontName;
    double FontSize = 9.0;  // points
    double CurrentX = 0.0;  // top left corner of the next text
    double CurrentY = 0.0;

    void Cls();
    // Sharp if level or upright; but a stroke that carries on a curve from where it ended is as smooth as the curve.
    void Line(double x1, double y1, double x2, double y2);
    // Strokes that are one curve, smooth or sharp as a whole. Thousands that follow on from each other are drawn
    // quickly.
    void Lines(std::span<const QLineF> lines);
    void Box(double x1, double y1, double x2, double y2);  // filled; at least one device pixel wide and high
    void PSet(double x, double y);                         // a round dot
    void Print(const QString& text);
    double TextWidth(const QString& text) const;

  private:
    static constexpr int kPhases = 4;  // places of a dot in a device pixel, across and down

    QPointF ToImage(const QPointF& point) const { return box_.ToPixels(point.x(), point.y()) * ratio_; }
    QRect Sharp(const QRectF& area) const;
    void UseMode(Mode mode);
    void UsePen();
    void UseStamps(double diameter);
    void Curve(const QPolygonF& run);
    void Fill(const QRect& area);
    void Touch(const QRectF& area);
    QFont Font() const;

    PictureBox& box_;
    QPainter painter_;  // in device pixels
    double ratio_;      // device pixels to a logical one
    Mode mode_ = Mode::Copy;
    QPointF end_;            // of the last stroke, device pixels
    bool curve_ = false;     // the last stroke was smooth
    double penWidth_ = 0.0;  // of the painter's pen, logical pixels; none at first
    QColor penColor_;
    QImage stamps_;  // dots of stampColor_ and stampDiameter_, kPhases x kPhases
    QColor stampColor_;
    double stampDiameter_ = 0.0;  // device pixels
    QRegion touched_;             // logical pixels
    bool everything_;             // is touched
};
