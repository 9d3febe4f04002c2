#include "editor/RecordingPreview.h"

#include <QEvent>
#include <algorithm>
#include <cmath>

#include "editor/CurveLines.h"
#include "editor/Ink.h"
#include "widgets/PictureKeys.h"

namespace {

constexpr double kCurveMargin = 0.06;  // above and below the curve
constexpr double kCurveWidth = 1.5;

}  // namespace

RecordingPreview::RecordingPreview(QWidget* parent) : PictureBox(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    new PictureKeys(*this);
    SetScale(0.0, 1.0, 1.0 + kCurveMargin, -1.0 - 2.0 * kCurveMargin);
    connect(this, &PictureBox::RedrawNeeded, this, &RecordingPreview::Draw);
    connect(this, &PictureBox::MouseDown, this, [this](int button, float x, float) { Drag(button & 1, x); });
    connect(this, &PictureBox::MouseMove, this, [this](int buttons, float x, float) { Drag(buttons & 1, x); });
}

void RecordingPreview::Show(std::span<const double> values, std::span<const double> times) {
    values_ = values;
    times_ = times;
    columns_ = 0;
    dragging_ = false;
    Draw();
}

void RecordingPreview::changeEvent(QEvent* event) {
    PictureBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        Draw();
    }
}

void RecordingPreview::Drag(int buttons, double x) {
    const double place = std::clamp(x, 0.0, 1.0);
    if (buttons == 0) {
        EndDrag();
    } else if (!values_.empty()) {
        dragFrom_ = dragging_ ? dragFrom_ : place;
        dragTo_ = place;
        dragging_ = true;
        Draw();
    }
}

void RecordingPreview::EndDrag() {
    if (!dragging_) {
        return;
    }
    dragging_ = false;
    const TimeScale places(values_.size(), times_);
    const auto [from, to] = std::minmax(dragFrom_, dragTo_);
    const std::size_t first = places.RowAt(from);
    const std::size_t last = places.RowAt(to);
    Draw();
    if (last > first) {
        Q_EMIT Chosen(first, last);
    }
}

void RecordingPreview::Draw() {
    const int columns = std::max(1, static_cast<int>(width() * devicePixelRatioF()));
    if (columns_ != columns) {
        columns_ = columns;
        curve_ = CurveLines(values_, times_, columns);
    }
    SetBackColor(palette().color(QPalette::Base));
    Drawing drawing(*this);
    drawing.Cls();
    if (values_.empty()) {
        return;
    }
    if (dragging_) {
        drawing.ForeColor = InkOn(palette(), 0.2);
        drawing.Box(std::min(dragFrom_, dragTo_), 1.0 + kCurveMargin, std::max(dragFrom_, dragTo_), -kCurveMargin);
    }
    drawing.ForeColor = InkOn(palette(), 0.35);
    const double zero = HeightScale(values_).Of(0.0);
    if (zero >= 0.0 && zero <= 1.0) {
        drawing.Line(0.0, zero, 1.0, zero);
    }
    drawing.DrawWidth = kCurveWidth;
    drawing.ForeColor = InkOn(palette(), 1.0);
    drawing.Lines(curve_);
}
