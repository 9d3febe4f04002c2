#include "editor/InvertedStrokes.h"

#include <utility>

void InvertedStrokes::Show(std::vector<Stroke> strokes) {
    if (standing_.empty() && strokes.empty()) {
        return;
    }
    const std::vector<Stroke> former = std::exchange(standing_, std::move(strokes));
    PictureBox::Drawing drawing(picture_);
    drawing.DrawMode = PictureBox::Drawing::Mode::Invert;
    const auto draw = [&drawing](const Stroke& stroke) {
        drawing.ForeColor = stroke.color;
        drawing.DrawWidth = stroke.width;
        const QLineF& ends = stroke.ends;
        if (stroke.shape == Stroke::Shape::Box) {
            drawing.Box(ends.x1(), ends.y1(), ends.x2(), ends.y2());
        } else {
            drawing.Line(ends.x1(), ends.y1(), ends.x2(), ends.y2());
        }
    };
    for (const Stroke& stroke : former) {
        draw(stroke);
    }
    for (const Stroke& stroke : standing_) {
        draw(stroke);
    }
}
