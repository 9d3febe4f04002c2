#pragma once

#include <functional>

#include "editor/EditorContext.h"

// The left press in Picture2: the pens that write a line, a point or a zero. What they write is in the file at once.
class Pens {
  public:
    explicit Pens(const EditorContext& context) : context_(context) {}

    // x and y as the pointer stands, also in the shaded strips.
    void Press(float x, float y);

  private:
    void DrawLine(float x, float y);
    void SetPoint(float x, float y);
    void RemovePoint(float x);
    void ZeroSample(float x);
    // Runs change, which says whether it found a record to work on; redraws if it did, or if it failed.
    bool Edit(const std::function<bool(RecordTable& table)>& change);
    // The Delete pen leaves the first and the last address alone.
    bool IsInner(float x) const;

    EditorContext context_;
};
