#pragma once

#include <functional>

#include "panel/PanelContext.h"
#include "platform/OptionGroup.h"

// One of the panel's five frequencies: an entry field, its unit options, and the label that shows the unit. What it
// stores is in Hz; the unit matters for reading the entry and for display alone.
class FrequencyField {
  public:
    struct Names {
        const char* field;
        const char* units;
        const char* unitLabel;
        const char* accessible;
    };

    // `stored` receives the commit; `refresh` is the group's, run after each commit.
    FrequencyField(const PanelContext& context, const Names& names, double& stored, std::function<void()> refresh,
                   QWidget* parent);

    // The stored value in the unit that suits it. A change of the unit gives the field the focus.
    void Show();

    EntryField* field() const { return field_; }
    OptionGroup& units() const { return *units_; }
    QLabel* unitLabel() const { return unitLabel_; }

  private:
    void Commit();

    PanelContext context_;
    QString accessible_;  // name for a screen reader, without the unit
    double& stored_;
    std::function<void()> refresh_;
    EntryField* field_;
    OptionGroup* units_;
    QLabel* unitLabel_;
};
