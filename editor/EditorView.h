#pragma once

#include <span>

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
    EditorView(EditorState& editor, ArbMemories& memories, PictureBox& Picture1, PictureBox& Picture2);

    // Leaves both pictures empty, with their scales fitted to the axis and to the view, which is fitted first.
    void Clear(const MemorySize& size);
    // Draws the records layer by layer, and copies them into the memory array where they are shown as a polyline. For
    // pictures that were just cleared.
    void Draw(const EditorScene& scene);

    // Takes all inverted strokes off, before the pictures change their size.
    void TakeOffStrokes();
    // They are gone from the pictures.
    void ForgetStrokes();

    // Puts inverted strokes into both pictures, in place of those that stand: the band with one width for each.
    void ShowBand(const std::vector<QLineF>& lines);
    void ShowDragBox(int from, double to);
    void ForgetDragBox();

    InvertedStrokes Cross;    // in Picture2
    InvertedStrokes ZoomBox;  // in Picture1

  private:
    void FitScales(const MemorySize& size);
    void DrawGround(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const MemorySize& size) const;
    void DrawSplineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const EditorScene& scene);
    void DrawPolylineView(PictureBox::Drawing& overview, PictureBox::Drawing& detail, const EditorScene& scene);
    void DrawPolylineDetail(PictureBox::Drawing& detail, const EditorScene& scene) const;
    void CopyToMemory(const EditorScene& scene);
    void DrawSideStrips(PictureBox::Drawing& detail) const;
    bool InView(int adr) const { return editor_.ViewLeft <= adr && adr <= editor_.ViewRight; }

    PictureBox& Picture1;
    PictureBox& Picture2;
    EditorState& editor_;
    ArbMemories& memories_;
    InvertedStrokes band1_;
    InvertedStrokes band2_;
    InvertedStrokes dragBox1_;
    InvertedStrokes dragBox2_;
};
