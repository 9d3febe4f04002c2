#pragma once

#include <QCheckBox>

#include "panel/PanelContext.h"
#include "platform/OptionGroup.h"

// Output level and DC offset, which hold each other within the level range.
class LevelGroup {
  public:
    LevelGroup(const PanelContext& context, QWidget* parent);

    // Works out the range, applies the level's side of the rules, shows the level, and runs RefreshOffset.
    void RefreshLevel();
    // Applies the offset's side of the rules and shows the offset.
    void RefreshOffset();

    EntryField* Text2;   // level
    QLabel* Label6;      // its unit
    OptionGroup* vunit;  // 0 "VPP", 1 "RMS"
    EntryField* Text4;   // offset
    QCheckBox* Check1;   // offset switched on

  private:
    void Text2_Commit();
    void Text4_Commit();
    void vunit_Click(int index);
    void Check1_Click();
    void SelectCheck1(bool checked);
    void StoreLevel(double level);
    void HoldOffsetMagnitude();
    bool AmOn() const { return panel_.bmAmpMod != 0; }

    PanelContext context_;
    PanelState& panel_;
};
