#pragma once

#include <QGroupBox>

#include "panel/FrequencyField.h"

// Sweep mode, start, stop and time, on the tab "Mode". Start and stop are independent of each other.
class SweepGroup {
  public:
    SweepGroup(const PanelContext& context, QWidget* parent);
    Q_DISABLE_COPY_MOVE(SweepGroup)

    void AddTo(QBoxLayout& column) const { column.addWidget(Frame7); }
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    void RefreshSweep();
    // The maximum of the signal form, at both frequencies.
    void ShowLimit(const QString& toolTip);

  private:
    void opwob_Click(int index);
    void Text12_Commit();
    void Arrange();
    QString TimeText(const PanelState& state) const;

    PanelContext context_;
    PanelState& panel_;
    QGroupBox* Frame7;
    OptionGroup* opwob;
    FrequencyField start_;  // Text10, owopsfreq, Label18
    FrequencyField stop_;   // Text11, owopefreq, Label20
    EntryField* Text12;     // time
    QLabel* Label22;
};
