#pragma once

#include <span>

#include "editor/EditMode.h"

// The commands on a whole table: clearing it, and turning the signal into a memory.
class Generation {
  public:
    Generation(const EditorContext& context, EditMode& mode) : context_(context), mode_(mode) {}

    // "&Delete signal / memory": all samples 0, or the flat signal of a new file.
    void mnudelete_Click();
    // "&Generate memory data": the signal, by the interpolation selected, becomes the memory array and its table. Other
    // events run before it returns.
    void mnulinint_Click();

  private:
    bool Interpolate(std::span<qint16> samples);
    bool WriteMemoryTable(std::span<const qint16> samples);

    EditorContext context_;
    EditMode& mode_;
};
