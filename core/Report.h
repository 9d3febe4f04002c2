#pragma once

#include <QList>
#include <variant>

#include "core/PanelState.h"

// One field of PanelState.
using PanelField = std::variant<double PanelState::*, quint8 PanelState::*, Truth PanelState::*>;

// What the instrument has reported since the link stands, field by field.
class Report {
  public:
    bool IsEmpty() const { return fields_.isEmpty(); }
    bool Holds(const PanelField& field) const { return fields_.contains(field); }
    // Of fields that it does not hold the values mean nothing.
    const PanelState& Values() const { return values_; }

    // The field was reported as it stands in `panel` now.
    template <typename Value>
    void Note(Value PanelState::*field, const PanelState& panel) {
        values_.*field = panel.*field;
        if (!Holds(field)) {
            fields_.append(field);
        }
    }
    // The instrument has no such value any more.
    void Forget(const PanelField& field) { fields_.removeAll(field); }

  private:
    PanelState values_;
    QList<PanelField> fields_;
};
