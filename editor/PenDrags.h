#pragma once

#include "editor/EditorContext.h"

// What the pens do while the pointer moves over Picture2: the rubber band of a line, and the drags of Copy and Paste. A
// drag ends with the first move without the left button.
class PenDrags {
  public:
    explicit PenDrags(const EditorContext& context) : context_(context) {}

    // x and y held to the view; buttons is 1 for the left one alone.
    void Move(int buttons, float x, float y);

  private:
    void StretchLine(float x, float y);
    void CopyStep(float x);
    void EndCopy(float x);
    void PasteStep(float x);
    void EndPaste();
    qint16 SampleAt(double x) const;
    int BufferDistance() const;

    EditorContext context_;
};
