#include "panel/FrequencyGroup.h"

#include "core/Enumerations.h"
#include "panel/SignalPicture.h"
#include "rules/FrequencyRules.h"

FrequencyGroup::FrequencyGroup(const PanelContext& context, Followers followers, QWidget* parent)
    : context_(context),
      followers_(std::move(followers)),
      Frame5(MakeFrame(QStringLiteral("Frame5"), QStringLiteral("Signal"), parent)),
      opsignal(new OptionGroup(QStringLiteral("opsignal"), CaptionsOf(kSignals), Frame5)),
      frequency_(
          context, {"Text1", "unit", "Label4", "Frequency", "Label1", "Frequency"}, &PanelState::mFreq,
          [this] { RefreshFrequency(); }, parent) {
    opsignal->SetAccessibleName(QStringLiteral("Signal"));
    opsignal->SetClick([this](int index) { opsignal_Click(index); });
    constexpr int kRows = 3;  // down the columns
    auto* const grid = new QGridLayout(Frame5);
    for (int index = 0; index < static_cast<int>(kSignals.size()); ++index) {
        grid->addWidget(opsignal->Option(index), index % kRows, index / kRows);
        grid->setColumnStretch(index / kRows, 1);
        SetSignalPicture(*opsignal->Option(index), index);
    }
}

void FrequencyGroup::AddFrequencyTo(QGridLayout& output, int row) const {
    AddReading(output, row, frequency_.reading());
    AddOptions(output, row + 1, frequency_.units());
}

QList<QWidget*> FrequencyGroup::TabStops() const { return TabStopsOf(*opsignal) + frequency_.TabStops(); }

// In a sweep the sweep's own frequencies are sent, for noise none.
QList<ShownField> FrequencyGroup::ShownFields() const {
    ShownField frequency = frequency_.Shown();
    frequency.control = [this, control = frequency.control] {
        const PanelState& panel = context_.panel;
        return panel.bmWobbel == kSweepOff && panel.bmSignal < kSignalWhiteNoise ? control() : nullptr;
    };
    return {ShownOption(&PanelState::bmSignal, *opsignal, [](const PanelState& state) { return state.bmSignal; }),
            frequency};
}

void FrequencyGroup::opsignal_Click(int index) {
    context_.panel.bmSignal = static_cast<quint8>(index);
    RefreshSignal();
    followers_.drawOverviewSignal();
}

void FrequencyGroup::RefreshSignal() {
    opsignal->Select(context_.panel.bmSignal);
    const QString toolTip = FrequencyToolTip(context_.panel.bmSignal);
    frequency_.ShowLimit(toolTip);
    followers_.showLimit(toolTip);
}
