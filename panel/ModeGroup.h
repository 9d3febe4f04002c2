#pragma once

#include <QGroupBox>

#include "core/PanelState.h"
#include "platform/OptionGroup.h"

// Operating mode and reference, on the tab "Mode": options without limits and without effect on anything else.
class ModeGroup {
  public:
    ModeGroup(PanelState& panel, QWidget* parent);

    void RefreshMode();
    void RefreshReference();

    QGroupBox* Frame6;  // operating mode
    OptionGroup* opmodes;
    QGroupBox* Frame8;  // reference
    OptionGroup* opreference;

  private:
    PanelState& panel_;
};
