#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "widgets/PictureBox.h"

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
// than one by one. So a piece ends before it is tall.
void DrawInPieces(QPainter& painter, const QPolygonF& run, double tall) {
    const auto draw = [&](qsizetype first, qsizetype last) {
        if (last - first == 1) {
            painter.drawLine(run[first], run[last]);
        } else if (last > first) {
            painter.drawPolyline(run.constData() + first, static_cast<int>(last - first + 1));
        }
    };
    qsizetype first = 0;
    double height = 0.0;  // up and down added
    for (qsizetype i = 1; i < run.size(); ++i) {
        const double rise = std::fabs(run[i].y() - run[i - 1].y());
        height += rise;
        if (height > tall) {
            draw(first, i - 1);
            first = i - 1;
            height = rise;
        }
    }
    draw(first, run.size() - 1);
}

bool Straight(const QLineF& line) { return line.dx() == 0.0 || line.dy() == 0.0; }

QRectF Bounds(const QLineF& line) { return QRectF(line.p1(), line.p2()).normalized(); }

}  // namespace

PictureBox::Drawing::Drawing(PictureBox& box) : box_(box), everything_(box.image_.size() != box.PixelSize()) {
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
    const QLineF line(ToImage({x1, y1}), ToImage({x2, y2}));
    const bool carriesOn = curve_ && line.p1() == end_ && DrawMode == Mode::Copy;
    curve_ = carriesOn || !Straight(line);
    end_ = line.p2();
    const auto inked = [&] {
        const double half = std::max(1.0, std::round(DrawWidth * ratio_)) / 2.0;
        return Bounds(line).adjusted(-half, -half, half, half);
    };
    if (!curve_) {
        Fill(Sharp(inked()));
        return;
    }
    UseMode(DrawMode);
    UsePen();
    painter_.drawLine(line);
    if (!everything_) {
        Touch(inked());
    }
}

void PictureBox::Drawing::Lines(std::span<const QLineF> lines) {
    // Inverted strokes have to meet as they do one by one.
    if (DrawMode == Mode::Invert || std::all_of(lines.begin(), lines.end(), Straight)) {
        for (const QLineF& line : lines) {
            Line(line.x1(), line.y1(), line.x2(), line.y2());
        }
        return;
    }
    QPolygonF run;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (run.isEmpty()) {
            run << ToImage(lines[i].p1());
        }
        run << ToImage(lines[i].p2());
        if (i + 1 == lines.size() || lines[i + 1].p1() != lines[i].p2()) {
            Curve(run);
            run.clear();
        }
    }
}

// Strokes that follow on from each other.
void PictureBox::Drawing::Curve(const QPolygonF& run) {
    constexpr double kTall = 60.0;  // logical pixels
    UseMode(Mode::Copy);
    UsePen();
    DrawInPieces(painter_, ThinnedOut(run), kTall * ratio_);
    const double half = DrawWidth * ratio_ / 2.0;
    Touch(run.boundingRect().adjusted(-half, -half, half, half));
    end_ = run.last();
    curve_ = true;
}

void PictureBox::Drawing::Box(double x1, double y1, double x2, double y2) {
    Fill(Sharp(Bounds({ToImage({x1, y1}), ToImage({x2, y2})})));
}

void PictureBox::Drawing::PSet(double x, double y) {
    const QPointF middle = ToImage({x, y});
    const double radius = DrawWidth * ratio_ / 2.0;
    const QRectF inked(middle - QPointF(radius, radius), middle + QPointF(radius, radius));
    if (!inked.intersects(box_.image_.rect())) {
        return;
    }
    UseMode(DrawMode);
    Touch(inked);
    if (DrawMode == Mode::Invert) {
        QPainterPath dot;
        dot.addEllipse(inked);
        painter_.fillPath(dot, ForeColor);
        return;
    }
    UseStamps(2.0 * radius);
    const int size = stamps_.width() / kPhases;
    constexpr double kNearest = 0.5 / kPhases;
    const QPointF corner = middle - QPointF(size, size) / 2.0 + QPointF(kNearest, kNearest);
    const QPoint pixel(static_cast<int>(std::floor(corner.x())), static_cast<int>(std::floor(corner.y())));
    const QPointF phase = (corner - pixel) * kPhases;
    const QPoint stamp(static_cast<int>(phase.x()), static_cast<int>(phase.y()));
    painter_.drawImage(pixel, stamps_, QRect(stamp * size, QSize(size, size)));
}

// One dot for each place that its middle can have in a pixel: thousands of dots are stamped many times faster than
// their outlines are filled.
void PictureBox::Drawing::UseStamps(double diameter) {
    if (stampColor_ == ForeColor && stampDiameter_ == diameter) {
        return;
    }
    stampColor_ = ForeColor;
    stampDiameter_ = diameter;
    const int size = 2 * static_cast<int>(std::ceil(diameter / 2.0) + 1.0);
    stamps_ = QImage(QSize(size, size) * kPhases, QImage::Format_ARGB32_Premultiplied);
    stamps_.fill(Qt::transparent);
    QPainter painter(&stamps_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ForeColor);
    for (int i = 0; i < kPhases * kPhases; ++i) {
        const QPoint stamp(i % kPhases, i / kPhases);
        const QPointF middle = stamp * size + QPointF(stamp) / kPhases + QPointF(size, size) / 2.0;
        painter.drawEllipse(middle, diameter / 2.0, diameter / 2.0);
    }
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

// Square ends, and joints as if such ends overlapped: strokes that meet leave no gap at any angle. Round joints look
// the same at the gentle bends of a dense curve, and take twice the time.
void PictureBox::Drawing::UsePen() {
    if (penWidth_ == DrawWidth && penColor_ == ForeColor) {
        return;
    }
    penWidth_ = DrawWidth;
    penColor_ = ForeColor;
    QPen pen(ForeColor, DrawWidth * ratio_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    pen.setMiterLimit(0.5);  // widths
    painter_.setPen(pen);
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
    const double rim = 1.0 + DrawWidth / 4.0;  // logical pixels; soft edges, and the corners of square ends at an angle
    const QRectF logical(area.topLeft() / ratio_, area.size() / ratio_);
    touched_ += logical.adjusted(-rim, -rim, rim, rim).toAlignedRect() & box_.rect();
    everything_ = touched_.rectCount() > kMostPlaces;
}

QFont PictureBox::Drawing::Font() const {
    QFont font(FontName);
    font.setStyleHint(QFont::SansSerif);  // where the named font is missing
    font.setPointSizeF(FontSize);
    return font;
}
