#include "panel/SweepGroup.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "core/Enumerations.h"
#include "rules/SweepRules.h"

SweepGroup::SweepGroup(const PanelContext& context, QWidget* parent)
    : Frame7(MakeFrame(QStringLiteral("Frame7"), QStringLiteral("Sweep mode"), parent)),
      start(
          context, {"Text10", "owopsfreq", "Label18", "Sweep start frequency"}, context.panel.msWobbel,
          [this] { RefreshSweep(); }, Frame7),
      stop(
          context, {"Text11", "owopefreq", "Label20", "Sweep stop frequency"}, context.panel.meWobbel,
          [this] { RefreshSweep(); }, Frame7),
      context_(context),
      panel_(context.panel) {
    opwob = new OptionGroup(QStringLiteral("opwob"), CaptionsOf(kSweeps), Frame7);
    opwob->SetAccessibleName(QStringLiteral("Sweep mode"));
    opwob->SetClick([this](int index) { opwob_Click(index); });
    Text12 =
        MakeEntryField(context, QStringLiteral("Text12"), KeyClass::Plain, QStringLiteral("Sweep time, in s"), Frame7);
    Text12->setToolTip(QStringLiteral("The sweep time is adjustable between 0.01s to 40s"));
    Text12->SetCommit([this] { Text12_Commit(); });
    start.field()->SetNext(stop.field());
    stop.field()->SetNext(Text12);
    Text12->SetNext(start.field());
    Label19 = MakeLabel(QStringLiteral("Label19"), QStringLiteral("Sweep start freq."), Frame7, start.field());
    Label21 = MakeLabel(QStringLiteral("Label21"), QStringLiteral("Sweep stop freq."), Frame7, stop.field());
    Label22 = MakeLabel(QStringLiteral("Label22"), QStringLiteral("Time in sec"), Frame7, Text12);
    Arrange();
}

void SweepGroup::Arrange() {
    auto* const grid = new QGridLayout(Frame7);
    auto* const modes = new QHBoxLayout;
    opwob->AddTo(modes);
    grid->addLayout(modes, 0, 0, 1, 4);
    const auto unitFrame = [this](const QString& name, const OptionGroup& units) {
        auto* const frame = Named(new QFrame(Frame7), name);
        auto* const row = new QHBoxLayout(frame);
        row->setContentsMargins(0, 0, 0, 0);
        units.AddTo(row);
        return frame;
    };
    Frame14 = unitFrame(QStringLiteral("Frame14"), start.units());
    Frame15 = unitFrame(QStringLiteral("Frame15"), stop.units());
    const auto addRow = [grid](int row, QWidget* caption, QWidget* field, QWidget* unit, QWidget* units) {
        grid->addWidget(caption, row, 0);
        grid->addWidget(field, row, 1);
        if (unit != nullptr) {
            grid->addWidget(unit, row, 2);
            grid->addWidget(units, row, 3);
        }
    };
    addRow(1, Label19, start.field(), start.unitLabel(), Frame14);
    addRow(2, Label21, stop.field(), stop.unitLabel(), Frame15);
    addRow(3, Label22, Text12, nullptr, nullptr);
    grid->setColumnStretch(3, 1);
}

void SweepGroup::opwob_Click(int index) {
    panel_.bmWobbel = static_cast<quint8>(index);
    RefreshSweep();
}

void SweepGroup::Text12_Commit() {
    context_.Store(HoldSweepTime(context_.EntryOf(*Text12), context_.numbers), panel_.mtWobbel);
    RefreshSweep();
}

void SweepGroup::RefreshSweep() {
    opwob->Select(panel_.bmWobbel);
    const bool sweepOn = panel_.bmWobbel > kSweepOff;
    const std::initializer_list<QWidget*> controls{start.field(), stop.field(), Text12,           start.unitLabel(),
                                                   Label19,       Label21,      stop.unitLabel(), Label22};
    for (QWidget* const control : controls) {
        control->setEnabled(sweepOn);
    }
    start.Show();
    stop.Show();
    Text12->setText(context_.numbers.Picture(panel_.mtWobbel, "0.00"));
}
