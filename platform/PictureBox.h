#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <QWidget>
#include <span>

// A picture that its form draws on in a user scale of its own. What is drawn stays until it is drawn over.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    class Drawing;

    // The paper is light in every desktop theme, so that black strokes read on it.
    static constexpr QColor kBackColor{250, 250, 246};
    static constexpr QColor kForeColor{0, 0, 0};

    explicit PictureBox(QWidget* parent = nullptr);

    // User coordinates: `left` at the left edge and left + width at the right edge, `top` at the top edge and
    // top + height at the bottom edge. Width and height may be negative but not 0. Counts for what is drawn from now
    // on.
    void SetScale(double left, double width, double top, double height);

  Q_SIGNALS:
    // The content is lost, because the size or the density of the pixels has changed. Sent while the widget is being
    // painted: a handler draws the picture and does nothing else.
    void RedrawNeeded();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void FitImage();
    QPointF ToPixels(const QPointF& point) const;

    double scaleLeft_ = 0.0;
    double scaleWidth_ = 1.0;
    double scaleTop_ = 0.0;
    double scaleHeight_ = 1.0;
    QImage image_;             // in device pixels
    bool contentLost_ = true;  // from a new image to the next Cls
};

// One redraw: made for its duration, and shown at its end. Coordinates are in the user scale of the box; what lies
// outside of the picture is clipped. No events are served and no second one is made meanwhile.
class PictureBox::Drawing {
  public:
    explicit Drawing(PictureBox& box);
    ~Drawing();
    Q_DISABLE_COPY_MOVE(Drawing)

    double DrawWidth = 1.0;  // width of the strokes, logical pixels
    QColor ForeColor = kForeColor;
    QString FontName;
    double FontSize = 9.0;  // points
    double CurrentX = 0.0;  // top left corner of the next text
    double CurrentY = 0.0;

    void Cls();
    void Line(double x1, double y1, double x2, double y2);
    // The same strokes as Line for each. Thousands of them that follow on from each other are drawn quickly.
    void Lines(std::span<const QLineF> lines);
    void Print(const QString& text);
    double TextWidth(const QString& text) const;

  private:
    QPen Pen() const;
    QFont Font() const;

    PictureBox& box_;
    QPainter painter_;
};
