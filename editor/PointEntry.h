#pragma once

#include <array>

#include "editor/EditorContext.h"
#include "platform/EntryField.h"

// The two fields that set one sample, or set and remove one point of the signal, from the keyboard. Nothing is stored
// before Enter in the value field.
class PointEntry {
  public:
    PointEntry(const EditorContext& context, QWidget* parent);

    std::array<EntryField*, 2> Text1;  // address and value

  private:
    void EnterAddress();
    void EnterPoint();

    EditorContext context_;
};
