#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "widgets/EntryField.h"
#include "widgets/KeyRepeat.h"

class QKeyEvent;
class QWheelEvent;

// Steps in an entry field: Up and Down change the digit left of the cursor by one, Page Up and Page Down the next
// higher digit, the wheel as Up and Down where the field has the focus. Each is committed as a typed entry is. What
// repeats while it only meets a limit again is not committed: one message for a press.
class FieldSteps : public QObject {
  public:
    // The power of ten of the unit that the field shows now: the digit stays the same one in another unit.
    using UnitPower = std::function<int()>;

    // Lives as long as the field. Without unitPower there is one unit.
    FieldSteps(EntryField& field, UnitPower unitPower);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool UseKey(const QKeyEvent& key);
    void UseWheel(const QWheelEvent& turn);
    void Step(int direction, bool nextHigher);
    std::optional<int> Digit();
    double Value() const;
    void Forget();

    EntryField& field_;
    UnitPower unitPower_;
    std::optional<int> digit_;  // of the last step, by its power of ten in the stored value
    KeyRepeat repeat_;
    int metLimit_ = 0;  // the direction in which the last step met a limit
    int turned_ = 0;    // of the wheel, less than a notch
};
