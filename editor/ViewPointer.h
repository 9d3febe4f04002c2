#pragma once

#include <QLabel>
#include <array>

#include "core/ProgramState.h"
#include "editor/EditorView.h"

// What the pointer does in the pictures beside the pens' work: choosing the view by a drag in the overview, paging with
// the right button, the crosshair and the read-outs.
class ViewPointer {
  public:
    ViewPointer(ProgramState& program, EditorView& view, QWidget* parent);

    // Where the position is shown: as whole numbers and as percentages, X first.
    std::array<QLabel*, 2> corint{};
    std::array<QLabel*, 2> corper{};

    // A drag in Picture1; x in addresses. There is no release: the drag ends with the first move without the button.
    void DragView(int buttons, float x);
    // A right press in Picture2. In a shaded strip it pages by half a view; elsewhere it abandons a line under way. A
    // redraw is to follow.
    void Page(float x);
    // The view closes in for steps above 0, and opens for others: around the pointer in Picture2, or else around its
    // middle. A redraw is to follow.
    void Zoom(double steps);
    // A move in Picture2, with the position held to the view.
    void ShowPosition(float x, float y);

  private:
    void EndDrag(int to);

    ProgramState& program_;
    EditorView& view_;
};
