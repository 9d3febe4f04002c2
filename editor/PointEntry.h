#pragma once

#include <array>
#include <functional>

#include "core/EditorState.h"
#include "widgets/EntryField.h"

// The two fields that set one sample, or set and remove one point of the signal, from the keyboard. Nothing is stored
// before Enter in the value field.
class PointEntry {
  public:
    using Enter = std::function<void(double address, double value)>;

    // enter is given the numbers; only the value is held to its range.
    PointEntry(const EditorState& editor, QWidget* parent, Enter enter);
    Q_DISABLE_COPY_MOVE(PointEntry)

    std::array<EntryField*, 2> Text1;  // address and value

  private:
    void EnterAddress();
    void EnterPoint();

    const EditorState& editor_;
    Enter enter_;
};
