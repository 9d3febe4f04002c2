#pragma once

#include <QLabel>

#include "core/PanelState.h"
#include "link/Link.h"
#include "platform/OptionGroup.h"

// The output switch: the one setting that reaches the instrument at once.
class OutputGroup {
  public:
    OutputGroup(PanelState& panel, Link& link, QWidget* parent);

    void RefreshOutput();

    QLabel* Label3;         // "Output: On" or "Output: Off"
    OptionGroup* Opoutput;  // 0 "On", 1 "Off"

  private:
    void Main_Opoutput_Click(int index);
    void ShowLabel(const QString& text, QRgb ground);

    PanelState& panel_;
    Link& link_;
};
