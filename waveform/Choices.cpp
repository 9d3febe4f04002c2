#include "waveform/Choices.h"

#include "waveform/CopyBuffer.h"
#include "waveform/ViewRules.h"

void BeginEditing(EditorState& editor) {
    editor.Target = EditTarget::Memory;
    editor.SelectedPen = Pen::Draw;
    editor.SelectedInterpolation = Interpolation::Linear;
    editor.Size = &kMemory4k;
    editor.Markers = true;
    SetView(editor, kFirstView);
    editor.ZoomDragging = false;
    editor.CrossFresh = true;  // the old one stood in the pictures of an earlier form
    editor.LineActive = false;
    editor.CopyDragging = false;
    editor.PasteDragging = false;
    editor.DragSincePress = EditorState::Drag::None;
    editor.DragsHeld = false;
}

void WorkOn(EditTarget target, EditorState& editor, EditorTables& tables) {
    tables.OpenData1(target);
    if (editor.Target != target) {
        editor.Target = target;
        editor.EditorRedrawPending = true;
    }
    editor.SelectedPen = Pen::Draw;
}

void TakeUp(Pen pen, EditorState& editor) {
    editor.SelectedPen = pen == Pen::Paste && CopiedDistance(editor) == 0 ? Pen::Copy : pen;
}
