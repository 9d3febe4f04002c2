#include "panel/ModeGroup.h"

#include <QVBoxLayout>

#include "core/Enumerations.h"
#include "panel/PanelContext.h"

ModeGroup::ModeGroup(PanelState& panel, QWidget* parent)
    : Frame6(MakeFrame(QStringLiteral("Frame6"), QStringLiteral("Operation modes"), parent)),
      opmodes(nullptr),
      Frame8(MakeFrame(QStringLiteral("Frame8"), QStringLiteral("Reference frequency (10MHz)"), parent)),
      opreference(nullptr),
      panel_(panel) {
    opmodes = new OptionGroup(QStringLiteral("opmodes"), CaptionsOf(kModes), Frame6);
    opmodes->SetAccessibleName(QStringLiteral("Operation mode"));
    opmodes->SetClick([this](int index) { panel_.bmMode = static_cast<quint8>(index); });
    opmodes->AddTo(new QVBoxLayout(Frame6));
    opreference =
        new OptionGroup(QStringLiteral("opreference"),
                        {QStringLiteral("Internal crystal oscillator"), QStringLiteral("External oscillator")}, Frame8);
    opreference->SetAccessibleName(QStringLiteral("Reference frequency"));
    opreference->SetClick([this](int index) { panel_.tmIntRef = ToTruth(index == 0); });
    opreference->AddTo(new QVBoxLayout(Frame8));
}

void ModeGroup::RefreshMode() { opmodes->Select(panel_.bmMode); }

void ModeGroup::RefreshReference() { opreference->Select(panel_.tmIntRef ? 0 : 1); }
