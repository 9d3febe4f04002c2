#include "panel/ModeGroup.h"

#include <QVBoxLayout>

#include "core/Enumerations.h"
#include "panel/PanelContext.h"

ModeGroup::ModeGroup(PanelState& panel, QWidget* parent)
    : panel_(panel),
      Frame6(MakeFrame(QStringLiteral("Frame6"), QStringLiteral("Operation modes"), parent)),
      opmodes(new OptionGroup(QStringLiteral("opmodes"), CaptionsOf(kModes), Frame6)),
      Frame8(MakeFrame(QStringLiteral("Frame8"), QStringLiteral("Reference frequency (10MHz)"), parent)),
      opreference(new OptionGroup(
          QStringLiteral("opreference"),
          {QStringLiteral("Internal crystal oscillator"), QStringLiteral("External oscillator")}, Frame8)) {
    opmodes->SetAccessibleName(QStringLiteral("Operation mode"));
    opmodes->SetClick([this](int index) { panel_.bmMode = static_cast<quint8>(index); });
    opmodes->AddTo(new QVBoxLayout(Frame6));
    opreference->SetAccessibleName(QStringLiteral("Reference frequency"));
    opreference->SetClick([this](int index) { panel_.tmIntRef = ToTruth(index == 0); });
    opreference->AddTo(new QVBoxLayout(Frame8));
}

void ModeGroup::AddTo(QBoxLayout& column) const {
    auto* const row = new QHBoxLayout;
    row->setSpacing(kMargin);
    row->addWidget(Frame6, 1);
    row->addWidget(Frame8, 1);
    column.addLayout(row);
}

QList<QWidget*> ModeGroup::TabStops() const { return TabStopsOf(*opmodes) + TabStopsOf(*opreference); }

QList<ShownField> ModeGroup::ShownFields() const {
    return {
        ShownOption(&PanelState::bmMode, *opmodes, [](const PanelState& state) { return state.bmMode; }),
        ShownOption(&PanelState::tmIntRef, *opreference,
                    [](const PanelState& state) { return state.tmIntRef ? 0 : 1; }),
    };
}

void ModeGroup::RefreshMode() { opmodes->Select(panel_.bmMode); }

void ModeGroup::RefreshReference() { opreference->Select(panel_.tmIntRef ? 0 : 1); }
