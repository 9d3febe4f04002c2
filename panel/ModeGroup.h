#pragma once

#include <QGroupBox>

#include "core/PanelState.h"
#include "panel/ShownField.h"
#include "widgets/OptionGroup.h"

// Operating mode and reference, on the tab "Mode": options without limits and without effect on anything else.
class ModeGroup {
  public:
    ModeGroup(PanelState& panel, QWidget* parent);
    Q_DISABLE_COPY_MOVE(ModeGroup)

    void AddTo(QBoxLayout& column) const;
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    void RefreshMode();
    void RefreshReference();

  private:
    PanelState& panel_;
    QGroupBox* Frame6;  // operating mode
    OptionGroup* opmodes;
    QGroupBox* Frame8;  // reference
    OptionGroup* opreference;
};
