#pragma once

#include <QGroupBox>
#include <functional>

#include "panel/FrequencyField.h"

// Signal form and output frequency.
class FrequencyGroup {
  public:
    // `drawOverviewSignal` redraws the picture of the signal form.
    FrequencyGroup(const PanelContext& context, std::function<void()> drawOverviewSignal, QWidget* parent);

    // Selects the signal form and sets the hints of its maximum frequency at `frequencyFields`.
    void RefreshSignal();
    void RefreshFrequency();

    // All fields whose tool tip follows the signal form.
    void SetFrequencyFields(QList<EntryField*> fields) { frequencyFields_ = std::move(fields); }

    QGroupBox* Frame5;
    OptionGroup* opsignal;
    FrequencyField frequency;  // Text1, unit, Label4

  private:
    void opsignal_Click(int index);

    PanelContext context_;
    std::function<void()> drawOverviewSignal_;
    QList<EntryField*> frequencyFields_;
};
