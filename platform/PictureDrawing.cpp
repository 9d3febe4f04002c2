#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "platform/PictureBox.h"

namespace {

// A dense memory has dozens of samples in each pixel column. The lowest and the highest of a column draw what all of
// them would, in a small part of the time.
QPolygonF ThinnedOut(const QPolygonF& run) {
    const auto column = [](const QPointF& point) { return std::floor(point.x()); };
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
    constexpr double kPieceHeight = 120.0;  // device pixels, up and down added
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

QRectF Bounds(const QLineF& line) { return QRectF(line.p1(), line.p2()).normalized(); }

}  // namespace

PictureBox::Drawing::Drawing(PictureBox& box) : box_(box) {
    box_.FitImage();
    ratio_ = box_.image_.devicePixelRatio();
    painter_.begin(&box_.image_);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.scale(1.0 / ratio_, 1.0 / ratio_);
}

PictureBox::Drawing::~Drawing() {
    painter_.end();
    if (everything_) {
        box_.update();
    } else {
        box_.update(touched_);
    }
}

void PictureBox::Drawing::Cls() {
    UseMode(Mode::Copy);
    painter_.fillRect(box_.image_.rect(), box_.backColor_);
    box_.settledFor_ = box_.image_.size();
    everything_ = true;
}

void PictureBox::Drawing::Line(double x1, double y1, double x2, double y2) {
    Stroke({ToImage({x1, y1}), ToImage({x2, y2})});
}

void PictureBox::Drawing::Lines(std::span<const QLineF> lines) {
    QPolygonF run;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (run.isEmpty()) {
            run << ToImage(lines[i].p1());
        }
        run << ToImage(lines[i].p2());
        // Inverted strokes meet as they do one by one.
        if (i + 1 == lines.size() || lines[i + 1].p1() != lines[i].p2() || DrawMode == Mode::Invert) {
            Curve(run);
            run.clear();
        }
    }
}

void PictureBox::Drawing::Box(double x1, double y1, double x2, double y2) {
    Fill(Sharp(Bounds({ToImage({x1, y1}), ToImage({x2, y2})})));
}

void PictureBox::Drawing::PSet(double x, double y) {
    const QPointF middle = ToImage({x, y});
    const double radius = DrawWidth * ratio_ / 2.0;
    UseMode(DrawMode);
    QPainterPath dot;
    dot.addEllipse(middle, radius, radius);
    painter_.fillPath(dot, ForeColor);
    Touch(dot.controlPointRect());
}

void PictureBox::Drawing::Print(const QString& text) {
    const QFont font = Font();
    const QFontMetricsF metrics(font, &box_.image_);
    const QPointF corner = box_.ToPixels(CurrentX, CurrentY);
    UseMode(Mode::Copy);
    painter_.save();
    painter_.resetTransform();
    painter_.setPen(ForeColor);
    painter_.setFont(font);
    painter_.drawText(corner + QPointF(0.0, metrics.ascent()), text);
    painter_.restore();
    everything_ = true;
}

double PictureBox::Drawing::TextWidth(const QString& text) const {
    return QFontMetricsF(Font(), &box_.image_).horizontalAdvance(text) / std::max(1, box_.width()) * box_.scaleWidth_;
}

// The whole device pixels that an area covers, at least one. An edge between two of them, as that of a stroke in the
// middle of a pixel's edge, may be off by the rounding of a 32-bit position, and still falls to the same side.
QRect PictureBox::Drawing::Sharp(const QRectF& area) const {
    constexpr double kHalf = 0.5 + 1.0 / 64.0;
    constexpr double kFar = 32.0;  // beyond the edges, nothing is seen
    const auto edge = [](double place, int size) {
        return static_cast<int>(std::floor(std::clamp(place, -kFar, size + kFar) + kHalf));
    };
    const int left = edge(area.left(), box_.image_.width());
    const int right = edge(area.right(), box_.image_.width());
    const int top = edge(area.top(), box_.image_.height());
    const int bottom = edge(area.bottom(), box_.image_.height());
    return {left, top, std::max(1, right - left), std::max(1, bottom - top)};
}

void PictureBox::Drawing::UseMode(Mode mode) {
    if (mode_ == mode) {
        return;
    }
    mode_ = mode;
    painter_.setRenderHint(QPainter::Antialiasing, mode == Mode::Copy);
    painter_.setCompositionMode(mode == Mode::Copy ? QPainter::CompositionMode_SourceOver
                                                   : QPainter::RasterOp_NotSourceXorDestination);
}

// Square ends and round joints: strokes that meet leave no gap at any angle.
void PictureBox::Drawing::UsePen() {
    const double width = DrawWidth * ratio_;
    if (painter_.pen().widthF() != width || painter_.pen().color() != ForeColor) {
        painter_.setPen({ForeColor, width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin});
    }
}

void PictureBox::Drawing::Stroke(const QLineF& line) {
    if (!Levelled(Bounds(line), line.p1(), line.p2())) {
        UseMode(DrawMode);
        UsePen();
        painter_.drawLine(line);
    }
}

// One or more strokes that follow on from each other.
void PictureBox::Drawing::Curve(const QPolygonF& run) {
    if (!Levelled(run.boundingRect(), run.first(), run.last())) {
        UseMode(DrawMode);
        UsePen();
        DrawInPieces(painter_, ThinnedOut(run));
    }
}

// Draws strokes that run straight along an axis, unless they carry on a curve; false if it did not.
bool PictureBox::Drawing::Levelled(const QRectF& bounds, const QPointF& start, const QPointF& end) {
    const bool carriesOn = curve_ && start == end_ && DrawMode == Mode::Copy;
    curve_ = carriesOn || (bounds.width() != 0.0 && bounds.height() != 0.0);
    end_ = end;
    const double half = std::max(1.0, std::round(DrawWidth * ratio_)) / 2.0;
    const QRectF inked = bounds.adjusted(-half, -half, half, half);
    if (curve_) {
        Touch(inked);
    } else {
        Fill(Sharp(inked));
    }
    return !curve_;
}

void PictureBox::Drawing::Fill(const QRect& area) {
    UseMode(DrawMode);
    painter_.fillRect(area, ForeColor);
    Touch(area);
}

// What changes is shown alone, as long as it is a few places.
void PictureBox::Drawing::Touch(const QRectF& area) {
    constexpr int kMostPlaces = 16;
    if (everything_) {
        return;
    }
    // One more pixel all around: that of soft edges and of square ends at an angle.
    const QRectF logical(area.topLeft() / ratio_, area.size() / ratio_);
    touched_ += logical.adjusted(-1.0, -1.0, 1.0, 1.0).toAlignedRect() & box_.rect();
    everything_ = touched_.rectCount() > kMostPlaces;
}

QFont PictureBox::Drawing::Font() const {
    QFont font(FontName);
    font.setStyleHint(QFont::SansSerif);  // where the named font is missing
    font.setPointSizeF(FontSize);
    return font;
}
