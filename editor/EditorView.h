#pragma once

#include <array>
#include <span>
#include <vector>

#include "core/ArbMemory.h"
#include "core/EditorState.h"
#include "core/MemorySize.h"
#include "editor/EditorFront.h"
#include "editor/InvertedStrokes.h"
#include "platform/PictureBox.h"
#include "storage/RecordStore.h"

// What a redraw is to show.
struct EditorScene {
    const MemorySize& size;
    EditTarget target;
    bool spline;                      // "Spline" is selected
    bool markers;                     // the records of the view as dots
    std::span<const Record> records;  // by address
};

// Both pictures of the editor: Picture1 with the whole address axis, Picture2 with the view, and the inverted strokes
// that stand in them.
class EditorView {
  public:
    EditorView(EditorState& editor, ArbMemories& memories, PictureBox& overview, PictureBox& detail);

    // Leaves both pictures empty, with their scales fitted to the axis and to the view, which is fitted first.
    void Clear(const MemorySize& size);
    // Draws the records layer by layer, and copies them into the memory array where they are shown as a polyline. For
    // pictures that were just cleared.
    void Draw(const EditorScene& scene);

    // Takes all inverted strokes off, before the pictures change their size.
    void TakeOffStrokes();
    // The pictures were cleared: nothing stands in them any more.
    void ForgetStrokes();

    // Inverted strokes, each in place of its former one: the crosshair in Picture2, the box of a view being chosen in
    // Picture1, a pen's band and box in both. A box that is forgotten stays in sight until the redraw.
    void ShowCross(float x, float y);
    void ShowZoomBox(int from, double to);
    void ForgetZoomBox() { zoomBox_.Forget(); }
    void ShowBand(const std::vector<QLineF>& lines);
    void ShowDragBox(int from, double to);
    void ForgetDragBox();

  private:
    void FitScales(const MemorySize& size);
    void DrawGround(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const MemorySize& size) const;
    void DrawSplineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const EditorScene& scene);
    void DrawPolylineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const EditorScene& scene);
    void DrawPolylineDetail(PictureBox::Drawing& detail, const EditorScene& scene) const;
    void CopyToMemory(const EditorScene& scene);
    void DrawSideStrips(PictureBox::Drawing& detail) const;
    void InvertCross();
    std::array<InvertedStrokes*, 5> Strokes() { return {&zoomBox_, &band1_, &band2_, &dragBox1_, &dragBox2_}; }
    bool InView(int adr) const { return editor_.ViewLeft <= adr && adr <= editor_.ViewRight; }

    PictureBox& Picture1;
    PictureBox& Picture2;
    EditorState& editor_;
    ArbMemories& memories_;
    InvertedStrokes zoomBox_;
    InvertedStrokes band1_;
    InvertedStrokes band2_;
    InvertedStrokes dragBox1_;
    InvertedStrokes dragBox2_;
};
