#include "panel/OutputGroup.h"

#include "panel/PanelContext.h"

namespace {
constexpr QRgb kLightRed = qRgb(255, 128, 128);
constexpr QRgb kLightYellow = qRgb(255, 255, 128);
constexpr QRgb kBlack = qRgb(0, 0, 0);
}  // namespace

OutputGroup::OutputGroup(PanelState& panel, Link& link, QWidget* parent)
    : panel_(panel),
      link_(link),
      Label3(Named(new QLabel(parent), QStringLiteral("Label3"))),
      Opoutput(new OptionGroup(QStringLiteral("Opoutput"), {QStringLiteral("On"), QStringLiteral("Off")}, parent)) {
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setAutoFillBackground(true);
    Label3->setMargin(3);
    Opoutput->SetAccessibleName(QStringLiteral("Output"));
    for (QAbstractButton* const option : Opoutput->Options()) {
        option->setToolTip(QStringLiteral("Output on or off: Ctrl+Shift+O"));
    }
    Opoutput->SetUserGuard([this] { return !link_.gate.Refuses(); });
    Opoutput->SetClick([this](int index) { Main_Opoutput_Click(index); });
}

void OutputGroup::AddTo(QGridLayout& output, int row) const {
    output.addWidget(Label3, row, 0);
    AddOptions(output, row, *Opoutput);
}

QList<QWidget*> OutputGroup::TabStops() const { return TabStopsOf(*Opoutput); }

QList<ShownField> OutputGroup::ShownFields() const {
    return {ShownOption(&PanelState::tmOut, *Opoutput, [](const PanelState& state) { return state.tmOut ? 0 : 1; })};
}

void OutputGroup::Main_Opoutput_Click(int index) {
    // A refresh within a link operation comes here as well; it sends under the gate that is held already.
    const LinkOperation operation = link_.gate.Join();
    panel_.tmOut = ToTruth(index == 0);
    link_.commands.SendOutput();
    link_.transport.CheckPort();
    RefreshOutput();
}

void OutputGroup::SwitchOver() { Opoutput->Select(panel_.tmOut ? 1 : 0); }

void OutputGroup::RefreshOutput() {
    if (panel_.tmOut) {
        ShowLabel(QStringLiteral("Output: On"), kLightRed);
        Opoutput->Select(0);
    } else {
        ShowLabel(QStringLiteral("Output: Off"), kLightYellow);
        Opoutput->Select(1);
    }
}

void OutputGroup::ShowLabel(const QString& text, QRgb ground) {
    QPalette colours = Label3->palette();
    colours.setColor(QPalette::Window, QColor(ground));
    colours.setColor(QPalette::WindowText, QColor(kBlack));
    Label3->setPalette(colours);
    Label3->setText(text);
}
