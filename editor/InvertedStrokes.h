#pragma once

#include <QColor>
#include <QLineF>
#include <vector>

#include "widgets/PictureBox.h"

// A line, or a filled box between two corners, in the user scale of its picture.
struct Stroke {
    enum class Shape { Line, Box };

    Shape shape = Shape::Line;
    QLineF ends;
    QColor color;
    double width = 1.0;  // of a line, logical pixels
};

// Strokes that stand inverted in a picture. They come off by being drawn once more, so a mouse move costs no redraw.
class InvertedStrokes {
  public:
    explicit InvertedStrokes(PictureBox& picture) : picture_(picture) {}

    // Takes off what stands and draws these.
    void Show(std::vector<Stroke> strokes);
    void TakeOff() { Show({}); }
    // The picture was cleared, or is to keep the strokes until then.
    void Forget() { standing_.clear(); }

  private:
    PictureBox& picture_;
    std::vector<Stroke> standing_;
};
