#include "panel/FrequencyGroup.h"

#include <QGridLayout>

#include "core/Enumerations.h"
#include "rules/FrequencyRules.h"

FrequencyGroup::FrequencyGroup(const PanelContext& context, std::function<void()> drawOverviewSignal, QWidget* parent)
    : Frame5(MakeFrame(QStringLiteral("Frame5"), QStringLiteral("Signal"), parent)),
      frequency(
          context, {"Text1", "unit", "Label4", "Frequency"}, context.panel.mFreq, [this] { RefreshFrequency(); },
          parent),
      context_(context),
      drawOverviewSignal_(std::move(drawOverviewSignal)) {
    opsignal = new OptionGroup(QStringLiteral("opsignal"), CaptionsOf(kSignals), Frame5);
    opsignal->SetAccessibleName(QStringLiteral("Signal"));
    opsignal->SetClick([this](int index) { opsignal_Click(index); });
    // Down the columns: the ramps under the other periodic forms, the noises under the memories.
    constexpr int kRows = 5;
    auto* const grid = new QGridLayout(Frame5);
    for (int index = 0; index < static_cast<int>(kSignals.size()); ++index) {
        grid->addWidget(opsignal->Option(index), index % kRows, index / kRows);
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
}

void FrequencyGroup::opsignal_Click(int index) {
    context_.panel.bmSignal = static_cast<quint8>(index);
    RefreshSignal();
    drawOverviewSignal_();
}

void FrequencyGroup::RefreshSignal() {
    opsignal->Select(context_.panel.bmSignal);
    const QString toolTip = FrequencyToolTip(context_.panel.bmSignal);
    for (EntryField* const field : std::as_const(frequencyFields_)) {
        field->setToolTip(toolTip);
    }
}

void FrequencyGroup::RefreshFrequency() { frequency.Show(); }
