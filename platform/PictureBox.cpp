#include "platform/PictureBox.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

// A dense memory has dozens of samples in each pixel column. The lowest and the highest of a column draw what all of
// them would, in a small part of the time.
QPolygonF ThinnedOut(const QPolygonF& run, double columnsPerUnit) {
    const auto column = [&](const QPointF& point) { return std::floor(point.x() * columnsPerUnit); };
    QPolygonF kept;
    for (auto first = run.cbegin(), end = first; first != run.cend(); first = end) {
        end = std::find_if(first, run.cend(), [&](const QPointF& point) { return column(point) != column(*first); });
        if (end - first <= 2) {
            std::copy(first, end, std::back_inserter(kept));
            continue;
        }
        const auto [low, high] =
            std::minmax_element(first, end, [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
        kept << *std::min(low, high) << *std::max(low, high);
    }
    return kept;
}

// One polyline has the cleanest joints, but strokes as tall and dense as those of noise take many times longer in it
// than one by one. So a piece ends as soon as it is tall.
void DrawInPieces(QPainter& painter, const QPolygonF& run) {
    constexpr double kPieceHeight = 120.0;  // logical pixels, up and down added
    qsizetype first = 0;
    double height = 0.0;
    for (qsizetype i = 1; i < run.size(); ++i) {
        height += std::fabs(run[i].y() - run[i - 1].y());
        if (height < kPieceHeight && i + 1 < run.size()) {
            continue;
        }
        if (i - first == 1) {
            painter.drawLine(run[first], run[i]);
        } else {
            painter.drawPolyline(run.constData() + first, static_cast<int>(i - first + 1));
        }
        first = i;
        height = 0.0;
    }
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void PictureBox::SetScale(double left, double width, double top, double height) {
    Q_ASSERT(width != 0.0 && height != 0.0);
    scaleLeft_ = left;
    scaleWidth_ = width;
    scaleTop_ = top;
    scaleHeight_ = height;
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    FitImage();
    if (contentLost_) {
        contentLost_ = false;  // asked once, also if nobody draws
        Q_EMIT RedrawNeeded();
    }
    QPainter(this).drawImage(QPoint(0, 0), image_);
}

void PictureBox::FitImage() {
    const double ratio = devicePixelRatioF();
    // Never empty, so that a form may draw while its layout leaves no room.
    const auto pixelCount = [&](int length) { return std::max(1, static_cast<int>(std::ceil(length * ratio))); };
    const QSize pixels(pixelCount(width()), pixelCount(height()));
    if (image_.size() == pixels && image_.devicePixelRatio() == ratio) {
        return;
    }
    image_ = QImage(pixels, QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
    image_.fill(kBackColor);
    contentLost_ = true;
}

QPointF PictureBox::ToPixels(const QPointF& point) const {
    return {(point.x() - scaleLeft_) / scaleWidth_ * width(), (point.y() - scaleTop_) / scaleHeight_ * height()};
}

PictureBox::Drawing::Drawing(PictureBox& box) : box_(box) {
    box_.FitImage();
    painter_.begin(&box_.image_);
    painter_.setRenderHint(QPainter::Antialiasing);
}

PictureBox::Drawing::~Drawing() {
    painter_.end();
    box_.update();
}

void PictureBox::Drawing::Cls() {
    painter_.fillRect(box_.rect().adjusted(0, 0, 1, 1), kBackColor);  // to the last fraction of a pixel
    box_.contentLost_ = false;
}

void PictureBox::Drawing::Line(double x1, double y1, double x2, double y2) {
    const QLineF line(x1, y1, x2, y2);
    Lines({&line, 1});
}

void PictureBox::Drawing::Lines(std::span<const QLineF> lines) {
    painter_.setPen(Pen());
    const double ratio = box_.image_.devicePixelRatio();
    QPolygonF run;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (run.isEmpty()) {
            run << box_.ToPixels(lines[i].p1());
        }
        run << box_.ToPixels(lines[i].p2());
        if (i + 1 == lines.size() || lines[i + 1].p1() != lines[i].p2()) {
            DrawInPieces(painter_, ThinnedOut(run, ratio));
            run.clear();
        }
    }
}

void PictureBox::Drawing::Print(const QString& text) {
    const QFont font = Font();
    const QPointF corner = box_.ToPixels({CurrentX, CurrentY});
    painter_.setPen(ForeColor);
    painter_.setFont(font);
    painter_.drawText(corner + QPointF(0.0, QFontMetricsF(font, &box_.image_).ascent()), text);
}

double PictureBox::Drawing::TextWidth(const QString& text) const {
    return QFontMetricsF(Font(), &box_.image_).horizontalAdvance(text) / std::max(1, box_.width()) * box_.scaleWidth_;
}

// Square ends and round joints: strokes that meet leave no gap at any angle.
QPen PictureBox::Drawing::Pen() const { return {ForeColor, DrawWidth, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin}; }

QFont PictureBox::Drawing::Font() const {
    QFont font(FontName);
    font.setStyleHint(QFont::SansSerif);  // where the named font is missing
    font.setPointSizeF(FontSize);
    return font;
}
