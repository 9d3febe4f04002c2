#pragma once

#include <QGridLayout>
#include <QLabel>

#include "core/PanelState.h"
#include "link/Link.h"
#include "panel/ShownField.h"
#include "widgets/OptionGroup.h"

// The output switch: the one setting that reaches the instrument at once.
class OutputGroup {
  public:
    OutputGroup(PanelState& panel, Link& link, QWidget* parent);
    Q_DISABLE_COPY_MOVE(OutputGroup)

    // One row of the frame "Output".
    void AddTo(QGridLayout& output, int row) const;
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    void RefreshOutput();
    // On to off or off to on, as a click on the other option does.
    void SwitchOver();
    // While it takes no focus, not even a click moves the focus to an option.
    void SetTakesFocus(bool takes) { Opoutput->SetTakesFocus(takes); }

  private:
    void Main_Opoutput_Click(int index);
    void ShowLabel(const QString& text, QRgb ground);

    PanelState& panel_;
    Link& link_;
    QLabel* Label3;         // "Output: On" or "Output: Off"
    OptionGroup* Opoutput;  // 0 "On", 1 "Off"
};
