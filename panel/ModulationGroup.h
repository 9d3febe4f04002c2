#pragma once

#include <QGroupBox>
#include <functional>

#include "panel/FrequencyField.h"

// Amplitude modulation, frequency and phase shift keying, on the tab "Modulation". At most one of them is on.
class ModulationGroup {
  public:
    // `refreshLevel` is run when amplitude modulation has cut the level.
    ModulationGroup(const PanelContext& context, std::function<void()> refreshLevel, QWidget* parent);
    Q_DISABLE_COPY_MOVE(ModulationGroup)

    void AddTo(QBoxLayout& column) const;
    QList<QWidget*> TabStops() const;
    QList<ShownField> ShownFields() const;

    void RefreshModulation();
    // The maximum of the signal form, at both frequencies.
    void ShowLimit(const QString& toolTip);

  private:
    void MakeOptions();
    void MakeAm();
    void MakeFsk();
    void MakePsk();
    void AlignCaptions();
    void opmod_Click(int index);
    void opAmMod_Click(int index);
    void Text5_Commit();
    void CommitPhase(const EntryField& field, double& phase);
    void EnableFor(int option);
    void ShowDepth();
    void ShowShiftFrequencies();
    void ShowPhases();
    void CapLevel();
    QString PhaseText(double phase) const;

    PanelContext context_;
    PanelState& panel_;
    std::function<void()> refreshLevel_;
    QGroupBox *Frame1, *Frame2, *Frame3, *Frame4;  // kind, AM, FSK, PSK
    OptionGroup *opmod = nullptr, *opAmMod = nullptr;
    EntryField* Text5 = nullptr;                    // AM depth in percent
    FrequencyField carrier_;                        // Text6, ocFreq, Label16
    FrequencyField hop_;                            // Text7, ohFreq, Label17
    EntryField *Text8 = nullptr, *Text9 = nullptr;  // phases in degrees
    QLabel *Label11 = nullptr, *Label14 = nullptr, *Label15 = nullptr;
};
