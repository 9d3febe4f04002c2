#pragma once

#include <QCheckBox>
#include <QGridLayout>

#include "panel/PanelContext.h"
#include "widgets/OptionGroup.h"

// Output level and DC offset, which hold each other within the level range.
class LevelGroup {
  public:
    LevelGroup(const PanelContext& context, QWidget* parent);
    Q_DISABLE_COPY_MOVE(LevelGroup)

    // Four rows of the frame "Output".
    void AddTo(QGridLayout& output, int row) const;
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    // Works out the range, applies the level's side of the rules, shows the level, and runs RefreshOffset.
    void RefreshLevel();

  private:
    // Applies the offset's side of the rules and shows the offset.
    void RefreshOffset();
    void MakeLevel(QWidget* parent);
    void MakeOffset(QWidget* parent);
    void Text2_Commit();
    void Text4_Commit();
    void vunit_Click(int index);
    void Check1_Click();
    void SelectCheck1(bool checked);
    void StoreLevel(double level);
    static QString UnitOf(const PanelState& state);
    QString LevelText(const PanelState& state) const;
    QString OffsetText(const PanelState& state) const;

    PanelContext context_;
    PanelState& panel_;
    QLabel* Label2 = nullptr;      // caption of the level
    EntryField* Text2 = nullptr;   // level
    QLabel* Label6 = nullptr;      // its unit
    OptionGroup* vunit = nullptr;  // 0 "VPP", 1 "RMS"
    QLabel* Label5 = nullptr;      // caption of the offset
    EntryField* Text4 = nullptr;   // offset
    QLabel* Label7 = nullptr;      // its unit
    QCheckBox* Check1 = nullptr;   // offset switched on
};
