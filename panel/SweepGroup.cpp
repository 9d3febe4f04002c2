#include "panel/SweepGroup.h"

#include "core/Enumerations.h"
#include "rules/SweepRules.h"

SweepGroup::SweepGroup(const PanelContext& context, QWidget* parent)
    : context_(context),
      panel_(context.panel),
      Frame7(MakeFrame(QStringLiteral("Frame7"), QStringLiteral("Sweep mode"), parent)),
      opwob(new OptionGroup(QStringLiteral("opwob"), CaptionsOf(kSweeps), Frame7)),
      start_(
          context, {"Text10", "owopsfreq", "Label18", "Sweep start frequency", "Label19", "Sweep start freq."},
          &PanelState::msWobbel, [this] { RefreshSweep(); }, Frame7),
      stop_(
          context, {"Text11", "owopefreq", "Label20", "Sweep stop frequency", "Label21", "Sweep stop freq."},
          &PanelState::meWobbel, [this] { RefreshSweep(); }, Frame7),
      Text12(MakeEntryField(context, QStringLiteral("Text12"), KeyClass::Plain, QStringLiteral("Sweep time, in s"),
                            Frame7)),
      Label22(MakeLabel(QStringLiteral("Label22"), QStringLiteral("Time in sec"), Frame7, Text12)) {
    opwob->SetAccessibleName(QStringLiteral("Sweep mode"));
    opwob->SetClick([this](int index) { opwob_Click(index); });
    Text12->setToolTip(QStringLiteral("The sweep time is adjustable between 0.01s to 40s"));
    Text12->SetCommit([this] { Text12_Commit(); });
    start_.SetNext(stop_.field());
    stop_.SetNext(Text12);
    Text12->SetNext(start_.field());
    Arrange();
}

void SweepGroup::Arrange() {
    auto* const grid = new QGridLayout(Frame7);
    auto* const modes = new QHBoxLayout;
    opwob->AddTo(modes);
    grid->addLayout(modes, 0, 0, 1, 4);
    const auto addFrequency = [this, grid](int row, const FrequencyField& frequency, const QString& unitFrame) {
        frequency.AddTo(*grid, row);
        auto* const frame = Named(new QFrame(Frame7), unitFrame);
        auto* const units = new QHBoxLayout(frame);
        units->setContentsMargins(0, 0, 0, 0);
        frequency.units().AddTo(units);
        grid->addWidget(frame, row, 3);
    };
    addFrequency(1, start_, QStringLiteral("Frame14"));
    addFrequency(2, stop_, QStringLiteral("Frame15"));
    grid->addWidget(Label22, 3, 0);
    grid->addWidget(Text12, 3, 1);
    grid->setColumnStretch(3, 1);
}

QList<QWidget*> SweepGroup::TabStops() const {
    return TabStopsOf(*opwob) + start_.TabStops() + stop_.TabStops() + QList<QWidget*>{Text12};
}

QList<ShownField> SweepGroup::ShownFields() const {
    return {ShownOption(&PanelState::bmWobbel, *opwob, [](const PanelState& state) { return state.bmWobbel; }),
            start_.Shown(),
            stop_.Shown(),
            {&PanelState::mtWobbel, [this] { return Text12; },
             [this](const PanelState& state) -> QString { return TimeText(state) + QStringLiteral(" s"); }}};
}

QString SweepGroup::TimeText(const PanelState& state) const { return context_.numbers.Picture(state.mtWobbel, "0.00"); }

void SweepGroup::opwob_Click(int index) {
    panel_.bmWobbel = static_cast<quint8>(index);
    RefreshSweep();
}

void SweepGroup::Text12_Commit() {
    context_.Store(HoldSweepTime(context_.EntryOf(*Text12), context_.numbers), panel_.mtWobbel);
    RefreshSweep();
}

void SweepGroup::ShowLimit(const QString& toolTip) {
    start_.ShowLimit(toolTip);
    stop_.ShowLimit(toolTip);
}

void SweepGroup::RefreshSweep() {
    opwob->Select(panel_.bmWobbel);
    const bool sweepOn = panel_.bmWobbel > kSweepOff;
    start_.SetEnabled(sweepOn);
    stop_.SetEnabled(sweepOn);
    Text12->setEnabled(sweepOn);
    Label22->setEnabled(sweepOn);
    start_.Show();
    stop_.Show();
    Text12->setText(TimeText(panel_));
}
