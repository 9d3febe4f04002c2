#pragma once

#include <QGroupBox>
#include <functional>

#include "panel/FrequencyField.h"

// Signal form and output frequency.
class FrequencyGroup {
  public:
    // What follows the signal form outside the group.
    struct Followers {
        std::function<void(const QString& toolTip)> showLimit;  // its maximum frequency, at the other frequency fields
        std::function<void()> drawOverviewSignal;               // its picture, after a click
    };

    FrequencyGroup(const PanelContext& context, Followers followers, QWidget* parent);
    Q_DISABLE_COPY_MOVE(FrequencyGroup)

    void AddSignalTo(QBoxLayout& column) const { column.addWidget(Frame5); }
    // Two rows of the frame "Output".
    void AddFrequencyTo(QGridLayout& output, int row) const;
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    // Selects the signal form and sets the hints of its maximum frequency.
    void RefreshSignal();
    void RefreshFrequency() { frequency_.Show(); }

  private:
    void opsignal_Click(int index);

    PanelContext context_;
    Followers followers_;
    QGroupBox* Frame5;
    OptionGroup* opsignal;
    FrequencyField frequency_;  // Text1, unit, Label4
};
