#include "editor/FormulaPreview.h"

#include <QEvent>
#include <algorithm>
#include <utility>

#include "editor/Ink.h"

namespace {

constexpr double kFullScale = 1.0;
constexpr double kCurveWidth = 2.0;
constexpr double kPreviewTop = 1.25;  // room above full scale for what would be cut

}  // namespace

FormulaPreview::FormulaPreview(QWidget* parent) : PictureBox(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &PictureBox::RedrawNeeded, this, &FormulaPreview::Draw);
}

void FormulaPreview::Show(std::vector<double> values) {
    values_ = std::move(values);
    Draw();
}

void FormulaPreview::changeEvent(QEvent* event) {
    PictureBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        Draw();
    }
}

void FormulaPreview::Draw() {
    const std::size_t last = std::max<std::size_t>(values_.size(), 2) - 1;
    SetBackColor(palette().color(QPalette::Base));
    SetScale(0.0, static_cast<double>(last), kPreviewTop, -2.0 * kPreviewTop);
    Drawing drawing(*this);
    drawing.Cls();
    drawing.ForeColor = InkOn(palette(), 0.25);
    for (const double level : {-kFullScale, 0.0, kFullScale}) {
        drawing.Line(0.0, level, static_cast<double>(last), level);
    }
    drawing.DrawWidth = kCurveWidth;
    drawing.ForeColor = InkOn(palette(), 0.4);
    DrawCurve(drawing, kPreviewTop);
    drawing.ForeColor = InkOn(palette(), 1.0);
    DrawCurve(drawing, kFullScale);
}

void FormulaPreview::DrawCurve(Drawing& drawing, double highest) {
    const auto held = [highest](double value) { return std::clamp(value, -highest, highest); };
    std::vector<QLineF> strokes;
    for (std::size_t k = 1; k < std::max<std::size_t>(values_.size(), 2) && !values_.empty(); ++k) {
        const double to = held(values_[std::min(k, values_.size() - 1)]);
        strokes.emplace_back(static_cast<double>(k) - 1.0, held(values_[k - 1]), static_cast<double>(k), to);
    }
    drawing.Lines(strokes);
}
