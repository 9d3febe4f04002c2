#pragma once

#include "core/MemorySize.h"

enum class EditTarget { Memory, Signal };  // opEditmode 0 and 1: the table of a setting file, or construction points
enum class Pen { Draw, Delete, Copy, Paste };  // opPenmode 0 to 3

// What the editor's tools see of their form. An interface, so that each tool stands in a file of its own.
class EditorFront {
  public:
    virtual ~EditorFront() = default;

    virtual EditTarget Target() const = 0;
    virtual Pen SelectedPen() const = 0;
    virtual bool SplineSelected() const = 0;     // Opintmode
    virtual const MemorySize& Size() const = 0;  // 4K if mnu4ksig is checked
    virtual void Select(EditTarget target) = 0;  // runs the group's click routine if the selection changes
    virtual void Select(Pen pen) = 0;            // likewise
    virtual void SetEditorCaptionMemory() = 0;   // the look of "Edit memory"
    virtual void SetEditorCaptionSignal() = 0;   // the look of "Edit signal"
    virtual void DrawEditor() = 0;               // redraws both pictures from the records
};
