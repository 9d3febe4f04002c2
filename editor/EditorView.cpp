#include "editor/EditorView.h"

#include <optional>

#include "waveform/Redraw.h"
#include "waveform/Samples.h"

namespace {

using Drawing = PictureBox::Drawing;

// The fixed look of the pictures, the same in every desktop theme.
constexpr QColor kOverviewBack{255, 192, 128};
constexpr QColor kDetailBack{255, 255, 128};
constexpr QColor kGrid{192, 192, 192};
constexpr QColor kCurve{0, 0, 0};
constexpr QColor kDot{255, 0, 0};
constexpr QColor kStrip{192, 192, 255};
constexpr QColor kPenStroke{0, 128, 0};
constexpr QColor kCrosshair{0, 0, 255};
constexpr QColor kZoomBox{192, 192, 192};

constexpr double kTop = kHighestSample;       // of Picture1
constexpr double kDetailTop = kHighestClick;  // of Picture2: leaves a strip above it
constexpr double kGridWidth = 1.0;
constexpr double kCentreWidth = 2.0;
constexpr double kOverviewCurveWidth = 2.0;
constexpr double kOverviewSplineWidth = 1.0;
constexpr double kDetailCurveWidth = 3.0;
constexpr double kDotWidth = 7.0;

void SetPen(Drawing& drawing, const QColor& color, double width) {
    drawing.ForeColor = color;
    drawing.DrawWidth = width;
}

void Dot(Drawing& detail, const Record& record) {
    SetPen(detail, kDot, kDotWidth);
    detail.PSet(record.Adr, record.Value);
}

void CurveStroke(Drawing& detail, const Record& from, const Record& to) {
    SetPen(detail, kCurve, kDetailCurveWidth);
    detail.Line(from.Adr, from.Value, to.Adr, to.Value);
}

}  // namespace

EditorView::EditorView(const EditorState& editor, PictureBox& overview, PictureBox& detail)
    : Picture1(overview),
      Picture2(detail),
      editor_(editor),
      zoomBox_(overview),
      band1_(overview),
      band2_(detail),
      dragBox1_(overview),
      dragBox2_(detail) {
    Picture1.SetBackColor(kOverviewBack);
    Picture2.SetBackColor(kDetailBack);
}

void EditorView::Clear() {
    const int margin = editor_.ViewMargin;
    Picture1.SetScale(0.0, editor_.Size->LastAdr, kTop, -2.0 * kTop);
    Picture2.SetScale(editor_.ViewLeft - margin, editor_.ViewRight - editor_.ViewLeft + 2 * margin, kDetailTop,
                      -2.0 * kDetailTop);
    Drawing(Picture1).Cls();
    Drawing(Picture2).Cls();
    ForgetStrokes();
}

void EditorView::Draw(std::span<const Record> records) {
    {
        Drawing overview(Picture1);
        Drawing detail(Picture2);
        DrawGround(overview, detail);
        if (ShowsSpline(editor_, records.size())) {
            DrawSplineView(overview, detail, records);
        } else {
            DrawPolylineView(overview, detail, records);
        }
    }
    if (editor_.LineActive && editor_.LineX2 >= 0.0F) {
        ShowBand({QLineF(editor_.LineX1, editor_.LineY1, editor_.LineX2, editor_.LineY2)});
    }
}

void EditorView::DrawGround(Drawing& overview, Drawing& detail) const {
    const MemorySize& size = *editor_.Size;
    overview.ForeColor = kDetailBack;
    overview.Box(editor_.ViewLeft, -kTop, editor_.ViewRight, kTop);
    SetPen(overview, kGrid, kCentreWidth);
    overview.Line(0.0, 0.0, size.LastAdr, 0.0);
    for (int x = size.gridFirst; x <= size.gridLimit; x += size.gridStep) {
        const double width = x == size.gridCentre ? kCentreWidth : kGridWidth;
        SetPen(overview, kGrid, width);
        overview.Line(x, -kTop, x, kTop);
        if (InView(x)) {
            SetPen(detail, kGrid, width);
            detail.Line(x, -kTop, x, kTop);
        }
    }
    SetPen(detail, kGrid, kCentreWidth);
    detail.Line(editor_.ViewLeft, 0.0, editor_.ViewRight, 0.0);
}

void EditorView::DrawSplineView(Drawing& overview, Drawing& detail, std::span<const Record> records) const {
    const std::array<qint16, kAddresses16k>& signal = editor_.ArbSignal;
    std::vector<QLineF> all;
    std::vector<QLineF> inView;
    for (int i = 1; i <= editor_.Size->LastAdr; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const QLineF stroke(i - 1, signal[at - 1], i, signal[at]);
        all.push_back(stroke);
        if (InView(i)) {
            inView.push_back(stroke);
        }
    }
    SetPen(overview, kCurve, kOverviewSplineWidth);
    overview.Lines(all);
    SetPen(detail, kCurve, kDetailCurveWidth);
    detail.Lines(inView);
    for (const Record& record : records) {
        if (editor_.Markers && InView(record.Adr)) {
            Dot(detail, record);
        }
    }
    DrawSideStrips(detail);
    SetPen(detail, kStrip, kDetailCurveWidth);
    detail.Line(editor_.ViewLeft, kTop, editor_.ViewLeft, kDetailTop);
    detail.Line(editor_.ViewRight, -kDetailTop, editor_.ViewRight, -kTop);
}

void EditorView::DrawPolylineView(Drawing& overview, Drawing& detail, std::span<const Record> records) const {
    std::vector<QLineF> strokes;
    for (std::size_t i = 1; i < records.size(); ++i) {
        const Record& from = records[i - 1];
        const Record& to = records[i];
        strokes.emplace_back(from.Adr, from.Value, to.Adr, to.Value);
    }
    SetPen(overview, kCurve, kOverviewCurveWidth);
    overview.Lines(strokes);
    DrawPolylineDetail(detail, records);
    DrawSideStrips(detail);
    detail.Box(editor_.ViewLeft, kTop + 1.0, editor_.ViewRight, kDetailTop);
    detail.Box(editor_.ViewLeft, -kDetailTop, editor_.ViewRight, -kTop - 1.0);
}

// Strokes that begin left of the view are covered by the strips, which come last.
void EditorView::DrawPolylineDetail(Drawing& detail, std::span<const Record> records) const {
    std::optional<std::size_t> lastInView;
    std::optional<std::size_t> firstAfter;
    for (std::size_t i = 1; i < records.size(); ++i) {
        if (InView(records[i].Adr)) {
            if (editor_.Markers) {
                Dot(detail, records[i]);
            }
            CurveStroke(detail, records[i - 1], records[i]);
            lastInView = i;
        }
        if (records[i].Adr >= editor_.ViewRight && !firstAfter) {
            firstAfter = i;
        }
    }
    if (editor_.Markers && !records.empty()) {
        Dot(detail, records.back());
    }
    if (!lastInView && firstAfter) {
        CurveStroke(detail, records[*firstAfter - 1], records[*firstAfter]);  // it crosses the whole view
    } else if (lastInView && firstAfter && records[*lastInView].Adr < editor_.ViewRight) {
        CurveStroke(detail, records[*lastInView], records[*firstAfter]);
        if (editor_.Markers) {
            Dot(detail, records[*lastInView]);
        }
    }
}

void EditorView::DrawSideStrips(Drawing& detail) const {
    detail.ForeColor = kStrip;
    detail.Box(editor_.ViewLeft - editor_.ViewMargin, -kDetailTop, editor_.ViewLeft, kDetailTop);
    detail.Box(editor_.ViewRight, -kDetailTop, editor_.ViewRight + editor_.ViewMargin, kDetailTop);
}

void EditorView::TakeOffStrokes() {
    if (!editor_.CrossFresh) {
        InvertCross(editor_.CrossX, editor_.CrossY);
    }
    for (InvertedStrokes* const strokes : Strokes()) {
        strokes->TakeOff();
    }
}

void EditorView::ForgetStrokes() {
    for (InvertedStrokes* const strokes : Strokes()) {
        strokes->Forget();
    }
}

void EditorView::ShowCross(float x, float y) {
    if (!editor_.CrossFresh) {
        InvertCross(editor_.CrossX, editor_.CrossY);
    }
    InvertCross(x, y);
}

// Over the view that is drawn: another one may have been chosen since.
void EditorView::InvertCross(float x, float y) {
    const double left = Picture2.ScaleLeft() + editor_.ViewMargin;
    const double right = Picture2.ScaleLeft() + Picture2.ScaleWidth() - editor_.ViewMargin;
    Drawing detail(Picture2);
    detail.DrawMode = Drawing::Mode::Invert;
    SetPen(detail, kCrosshair, 1.0);
    detail.Line(x, kTop, x, -kTop);
    detail.Line(left, y, right, y);
}

void EditorView::ShowZoomBox(int from, double to) {
    zoomBox_.Show({{Stroke::Shape::Box, QLineF(from, -kTop, to, kTop), kZoomBox}});
}

void EditorView::ShowBand(const std::vector<QLineF>& lines) {
    const auto strokes = [&lines](double width) {
        std::vector<Stroke> drawn;
        drawn.reserve(lines.size());
        for (const QLineF& line : lines) {
            drawn.push_back({Stroke::Shape::Line, line, kPenStroke, width});
        }
        return drawn;
    };
    band1_.Show(strokes(1.0));
    band2_.Show(strokes(3.0));
}

void EditorView::ShowDragBox(const DragBox& stretch) {
    const Stroke box{Stroke::Shape::Box, QLineF(stretch.from, -kTop, stretch.to, kTop), kPenStroke};
    dragBox1_.Show({box});
    dragBox2_.Show({box});
}

void EditorView::ForgetDragBox() {
    dragBox1_.Forget();
    dragBox2_.Forget();
}
