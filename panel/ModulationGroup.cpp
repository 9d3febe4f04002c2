#include "panel/ModulationGroup.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include "core/Enumerations.h"
#include "rules/LevelRules.h"
#include "rules/ModulationRules.h"
#include "widgets/FollowFont.h"

namespace {

void SetEnabled(bool enabled, std::initializer_list<QWidget*> controls) {
    for (QWidget* const control : controls) {
        control->setEnabled(enabled);
    }
}

}  // namespace

ModulationGroup::ModulationGroup(const PanelContext& context, std::function<void()> refreshLevel, QWidget* parent)
    : context_(context),
      panel_(context.panel),
      refreshLevel_(std::move(refreshLevel)),
      Frame1(MakeFrame(QStringLiteral("Frame1"), QStringLiteral("Modulation"), parent)),
      Frame2(MakeFrame(QStringLiteral("Frame2"), QStringLiteral("AM Modulation"), parent)),
      Frame3(MakeFrame(QStringLiteral("Frame3"), QStringLiteral("Frequency Shift Keying"), parent)),
      Frame4(MakeFrame(QStringLiteral("Frame4"), QStringLiteral("Phase Shift Keying"), parent)),
      carrier_(
          context, {"Text6", "ocFreq", "Label16", "Carrier frequency", "Label12", "Carrier freq."}, &PanelState::mcFreq,
          [this] { RefreshModulation(); }, Frame3),
      hop_(
          context, {"Text7", "ohFreq", "Label17", "Hop frequency", "Label13", "Hop freq."}, &PanelState::mhFreq,
          [this] { RefreshModulation(); }, Frame3) {
    MakeOptions();
    MakeAm();
    MakeFsk();
    MakePsk();
    FollowFont(Label15, [this] { AlignCaptions(); });
    ShowDepth();
    ShowShiftFrequencies();
    ShowPhases();
}

void ModulationGroup::AddTo(QBoxLayout& column) const {
    for (QGroupBox* const frame : {Frame1, Frame2, Frame3, Frame4}) {
        column.addWidget(frame);
    }
}

QList<QWidget*> ModulationGroup::TabStops() const {
    return TabStopsOf(*opmod) + TabStopsOf(*opAmMod) + QList<QWidget*>{Text5} + carrier_.TabStops() + hop_.TabStops() +
           QList<QWidget*>{Text8, Text9};
}

// The fields of the three kinds stand below one another.
void ModulationGroup::AlignCaptions() {
    const std::initializer_list<QLabel*> captions{Label11, carrier_.caption(), hop_.caption(), Label14, Label15};
    int width = 0;
    for (const QLabel* const caption : captions) {
        width = std::max(width, caption->fontMetrics().horizontalAdvance(caption->text()));
    }
    for (QLabel* const caption : captions) {
        caption->setMinimumWidth(width);
    }
}

void ModulationGroup::MakeOptions() {
    opmod = new OptionGroup(QStringLiteral("opmod"), CaptionsOf(kModulationOptions), Frame1);
    opmod->SetAccessibleName(QStringLiteral("Modulation"));
    opmod->SetClick([this](int index) { opmod_Click(index); });
    opmod->AddTo(new QHBoxLayout(Frame1));
}

void ModulationGroup::MakeAm() {
    opAmMod = new OptionGroup(QStringLiteral("opAmMod"),
                              {QString::fromLatin1(kAmplitudeModulations[kAmInternal].caption),
                               QString::fromLatin1(kAmplitudeModulations[kAmExternal].caption)},
                              Frame2);
    opAmMod->SetAccessibleName(QStringLiteral("AM source"));
    opAmMod->SetClick([this](int index) { opAmMod_Click(index); });
    Text5 = MakeEntryField(context_, QStringLiteral("Text5"), KeyClass::Digits, QStringLiteral("AM depth, in percent"),
                           Frame2);
    Text5->setToolTip(QStringLiteral("Modulation depth from 0 - 100%"));
    Text5->SetCommit([this] { Text5_Commit(); });
    Label11 = MakeLabel(QStringLiteral("Label11"), QStringLiteral("AM depth"), Frame2, Text5);
    auto* const grid = new QGridLayout(Frame2);
    grid->addWidget(opAmMod->Option(0), 0, 0, 1, 3);
    grid->addWidget(opAmMod->Option(1), 1, 0, 1, 3);
    grid->addWidget(Label11, 2, 0);
    grid->addWidget(Text5, 2, 1);
    grid->addWidget(new QLabel(QStringLiteral("%"), Frame2), 2, 2);
    grid->setColumnStretch(3, 1);
}

void ModulationGroup::MakeFsk() {
    carrier_.SetNext(hop_.field());
    hop_.SetNext(carrier_.field());
    auto* const grid = new QGridLayout(Frame3);
    int row = 0;
    for (const FrequencyField* const frequency : {&carrier_, &hop_}) {
        frequency->AddTo(*grid, row);
        auto* const units = new QHBoxLayout;
        frequency->units().AddTo(units);
        grid->addLayout(units, row++, 3);
    }
    grid->setColumnStretch(3, 1);
}

void ModulationGroup::MakePsk() {
    const QString toolTip = QStringLiteral("The phase angel can be adjusted from 0 degrees to 359.9 degrees");
    Text8 = MakeEntryField(context_, QStringLiteral("Text8"), KeyClass::Plain, QStringLiteral("Phase 0, in degrees"),
                           Frame4);
    Text9 = MakeEntryField(context_, QStringLiteral("Text9"), KeyClass::Plain, QStringLiteral("Phase 1, in degrees"),
                           Frame4);
    Text8->SetCommit([this] { CommitPhase(*Text8, panel_.mPhasea); });
    Text9->SetCommit([this] { CommitPhase(*Text9, panel_.mPhaseb); });
    Text8->SetNext(Text9);
    Text9->SetNext(Text8);
    Text8->setToolTip(toolTip);
    Text9->setToolTip(toolTip);
    Label14 = MakeLabel(QStringLiteral("Label14"), QStringLiteral("Phase0 in °"), Frame4, Text8);
    Label15 = MakeLabel(QStringLiteral("Label15"), QStringLiteral("Phase1 in °"), Frame4, Text9);
    auto* const grid = new QGridLayout(Frame4);
    grid->addWidget(Label14, 0, 0);
    grid->addWidget(Text8, 0, 1);
    grid->addWidget(Label15, 1, 0);
    grid->addWidget(Text9, 1, 1);
    grid->setColumnStretch(2, 1);
}

void ModulationGroup::opmod_Click(int index) {
    const ModulationOption& option = kModulationOptions[static_cast<std::size_t>(index)];
    panel_.bmFMod = option.bmFMod;
    panel_.bmAmpMod = option.bmAmpMod;
    RefreshModulation();
}

void ModulationGroup::opAmMod_Click(int index) { panel_.bmAmpMod = index == 1 ? kAmExternal : kAmInternal; }

void ModulationGroup::Text5_Commit() {
    context_.Store(HoldDepth(context_.EntryOf(*Text5)), panel_.bmAmDepth);
    RefreshModulation();
}

void ModulationGroup::CommitPhase(const EntryField& field, double& phase) {
    context_.Store(HoldPhase(context_.EntryOf(field)), phase);
    RefreshModulation();
}

QList<ShownField> ModulationGroup::ShownFields() const {
    const auto kind = [](const PanelState& state) { return ModulationOptionIndex(state.bmAmpMod, state.bmFMod); };
    const auto phase = [this](double PanelState::*field, EntryField* control) -> ShownField {
        return {field, [control] { return control; },
                [this, field](const PanelState& state) -> QString { return PhaseText(state.*field) + u'°'; }};
    };
    return {ShownOption(&PanelState::bmFMod, *opmod, kind),
            ShownOption(&PanelState::bmAmpMod, *opAmMod,
                        [kind](const PanelState& state) {
                            return kind(state) != kOptionAm ? -1 : state.bmAmpMod == kAmExternal ? 1 : 0;
                        }),
            {&PanelState::bmAmDepth, [this] { return Text5; },
             [](const PanelState& state) -> QString { return QString::number(state.bmAmDepth) + u'%'; }},
            carrier_.Shown(),
            hop_.Shown(),
            phase(&PanelState::mPhasea, Text8),
            phase(&PanelState::mPhaseb, Text9)};
}

QString ModulationGroup::PhaseText(double phase) const { return context_.numbers.Picture(phase, "0.0"); }

void ModulationGroup::ShowLimit(const QString& toolTip) {
    carrier_.ShowLimit(toolTip);
    hop_.ShowLimit(toolTip);
}

void ModulationGroup::RefreshModulation() {
    const int option = ModulationOptionIndex(panel_.bmAmpMod, panel_.bmFMod);
    const quint8 source = panel_.bmAmpMod;
    opmod->Select(option);
    // The click routine of "AM" starts with the internal source; an external one that was loaded or read survives.
    if (option == kOptionAm && source == kAmExternal) {
        panel_.bmAmpMod = source;
    }
    EnableFor(option);
    if (option == kOptionAm) {
        ShowDepth();
        opAmMod->Select(panel_.bmAmpMod == kAmExternal ? 1 : 0);
        CapLevel();
    } else if (option == kOptionPsk) {
        ShowPhases();
    } else if (option == kOptionFsk) {
        ShowShiftFrequencies();
    }
}

void ModulationGroup::ShowDepth() { Text5->setText(u' ' + QString::number(panel_.bmAmDepth)); }

void ModulationGroup::ShowShiftFrequencies() {
    carrier_.Show();
    hop_.Show();
}

void ModulationGroup::ShowPhases() {
    Text8->setText(PhaseText(panel_.mPhasea));
    Text9->setText(PhaseText(panel_.mPhaseb));
}

// In FSK the phase fields keep their state: their frame closes them.
void ModulationGroup::EnableFor(int option) {
    SetEnabled(option == kOptionAm, {Frame2, Text5, Label11, opAmMod->Option(0), opAmMod->Option(1)});
    SetEnabled(option == kOptionFsk, {Frame3});
    carrier_.SetEnabled(option == kOptionFsk);
    hop_.SetEnabled(option == kOptionFsk);
    SetEnabled(option == kOptionPsk, {Frame4});
    if (option != kOptionFsk) {
        SetEnabled(option == kOptionPsk, {Label14, Label15, Text8, Text9});
    }
}

void ModulationGroup::CapLevel() {
    const Held held = HoldAmLevel(panel_.mAmp, panel_.tmVPP, context_.numbers);
    if (!held.hint.isEmpty()) {
        panel_.mAmp = held.value;
        refreshLevel_();
        context_.hint.FlashMessage(held.hint);  // over the hints of the level
    }
}
