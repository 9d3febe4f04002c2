#pragma once

#include <QGroupBox>

#include "panel/FrequencyField.h"

// Sweep mode, start, stop and time, on the tab "Mode". Start and stop are independent of each other.
class SweepGroup {
  public:
    SweepGroup(const PanelContext& context, QWidget* parent);

    void RefreshSweep();

    QGroupBox* Frame7;
    OptionGroup* opwob = nullptr;
    QFrame* Frame14 = nullptr;     // units of the start
    QFrame* Frame15 = nullptr;     // units of the stop
    FrequencyField start;          // Text10, owopsfreq, Label18
    FrequencyField stop;           // Text11, owopefreq, Label20
    EntryField* Text12 = nullptr;  // time
    QLabel *Label19 = nullptr, *Label21 = nullptr, *Label22 = nullptr;

  private:
    void opwob_Click(int index);
    void Text12_Commit();
    void Arrange();

    PanelContext context_;
    PanelState& panel_;
};
