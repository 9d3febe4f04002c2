#pragma once

#include <array>
#include <span>
#include <vector>

#include "core/EditorState.h"
#include "editor/InvertedStrokes.h"
#include "waveform/PenDrags.h"
#include "widgets/PictureBox.h"

// Both pictures of the editor: Picture1 with the whole address axis, Picture2 with the view, and the inverted strokes
// that stand in them. It shows the state and changes nothing of it.
class EditorView {
  public:
    EditorView(const EditorState& editor, PictureBox& overview, PictureBox& detail);

    // Leaves both pictures empty, with their scales fitted to the axis and to the view.
    void Clear();
    // Draws the records, by address, layer by layer; of a spline the curve is ArbSignal. For pictures that were just
    // cleared.
    void Draw(std::span<const Record> records);

    // The pointer, that of the mouse or that of the keys, is in Picture2.
    bool HasPointer() const { return Picture2.underMouse() || Picture2.hasFocus(); }

    // Takes all inverted strokes off, before the pictures change their size. No crosshair stands any more: CrossFresh.
    void TakeOffStrokes();
    // The pictures were cleared: nothing stands in them any more.
    void ForgetStrokes();

    // Inverted strokes, each in place of its former one: the crosshair in Picture2, whose former one the state knows,
    // the box of a view being chosen in Picture1, a pen's band and box in both. A box that is forgotten stays in sight
    // until the redraw.
    void ShowCross(float x, float y);
    void ShowZoomBox(int from, double to);
    void ForgetZoomBox() { zoomBox_.Forget(); }
    void ShowBand(const std::vector<QLineF>& lines);
    void ShowDragBox(const DragBox& stretch);
    void ForgetDragBox();

  private:
    void DrawGround(PictureBox::Drawing& overview, PictureBox::Drawing& detail) const;
    void DrawSplineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail,
                        std::span<const Record> records) const;
    void DrawPolylineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail,
                          std::span<const Record> records) const;
    void DrawPolylineDetail(PictureBox::Drawing& detail, std::span<const Record> records) const;
    void DrawSideStrips(PictureBox::Drawing& detail) const;
    void InvertCross(float x, float y);
    std::array<InvertedStrokes*, 5> Strokes() { return {&zoomBox_, &band1_, &band2_, &dragBox1_, &dragBox2_}; }
    bool InView(int adr) const { return editor_.ViewLeft <= adr && adr <= editor_.ViewRight; }

    PictureBox& Picture1;
    PictureBox& Picture2;
    const EditorState& editor_;
    InvertedStrokes zoomBox_;
    InvertedStrokes band1_;
    InvertedStrokes band2_;
    InvertedStrokes dragBox1_;
    InvertedStrokes dragBox2_;
};
