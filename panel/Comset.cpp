#include "panel/Comset.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "widgets/Controls.h"
#include "widgets/Grid.h"

namespace {

QGroupBox* MakeColumn(const QString& title, const OptionGroup& group, QWidget* parent) {
    auto* const frame = new QGroupBox(title, parent);
    group.AddTo(new QVBoxLayout(frame));
    return frame;
}

}  // namespace

Comset::Comset(ProgramState& program, Link& link, Desktop& desktop, PortDescriber describePort, QWidget* parent)
    : QDialog(parent), program_(program), link_(link), desktop_(desktop), describePort_(std::move(describePort)) {
    setObjectName(QStringLiteral("comset"));
    setWindowTitle(QStringLiteral("Serial port setup"));
    QStringList ports;
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        ports += QStringLiteral("Com%1").arg(number);
    }
    port = new OptionGroup(QStringLiteral("port"), ports, this, kFirstComPort);
    port->SetAccessibleName(QStringLiteral("Serial port"));
    QStringList rates;
    for (const qint32 rate : kBaudRates) {
        rates += QString::number(rate);
    }
    baud = new OptionGroup(QStringLiteral("baud"), rates, this, 1);
    baud->SetAccessibleName(QStringLiteral("Baud rate"));
    Command1 = Named(new QPushButton(QStringLiteral("Autosearch"), this), QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Search the connected analyser"));
    cbok = Named(new QPushButton(QStringLiteral("&Ok"), this), QStringLiteral("cbok"));
    cbok->setDefault(true);
    cbabbruch = Named(new QPushButton(QStringLiteral("E&xit"), this), QStringLiteral("cbabbruch"));
    connect(cbok, &QPushButton::clicked, this, &Comset::comset_cbok_Click);
    connect(cbabbruch, &QPushButton::clicked, this, &Comset::comset_cbabbruch_Click);
    connect(Command1, &QPushButton::clicked, this, &Comset::comset_Command1_Click);
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        port->Option(number)->installEventFilter(this);
    }
    port->SetClick([this](int number) { DescribePort(number); });
    portDevice = new QLabel(this);
    portDevice->setObjectName(QStringLiteral("portDevice"));
    portDevice->setTextFormat(Qt::PlainText);
    Arrange();
}

void Comset::Arrange() {
    auto* const hint = new QLabel(QStringLiteral("Set KL5276-x to: No parity; 8 Bit; 2 stop bits"), this);
    auto* const options = new QHBoxLayout;
    options->addWidget(MakeColumn(QStringLiteral("Port"), *port, this));
    options->addWidget(MakeColumn(QStringLiteral("Baud"), *baud, this));
    LetWrap(portDevice);  // as wide as the options need, and of the same height for most devices
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(Command1);
    buttons->addStretch();
    buttons->addWidget(cbok);
    buttons->addWidget(cbabbruch);
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(kMargin);
    column->addWidget(hint);
    column->addLayout(options);
    column->addWidget(portDevice);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void Comset::comset_Form_Load() {
    port->Select(program_.preferences.ComPortNumber);
    portDevice->clear();
    for (int number = kFirstComPort; number <= kLastComPort; ++number) {
        DescribePort(number);
    }
    const auto* const rate = std::find(std::begin(kBaudRates), std::end(kBaudRates), program_.preferences.ComBaudRate);
    baud->Select(rate != std::end(kBaudRates) ? static_cast<int>(rate - std::begin(kBaudRates)) + 1 : -1);
}

void Comset::DescribePort(int number) {
    const bool openHere = number == program_.preferences.ComPortNumber && link_.transport.PortOpen();
    const QString device = describePort_(number, openHere);
    port->Option(number)->setToolTip(device);
    port->Option(number)->setAccessibleDescription(device);
    if (number == port->Selected()) {
        portDevice->setText(device);
    }
}

// The tool tip describes the port at the moment when it is shown, not when the dialog was opened.
bool Comset::eventFilter(QObject* watched, QEvent* event) {
    for (int number = kFirstComPort; event->type() == QEvent::ToolTip && number <= kLastComPort; ++number) {
        if (watched == port->Option(number)) {
            DescribePort(number);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void Comset::comset_cbok_Click() {
    const auto operation = link_.gate.Begin();
    if (!operation) {
        return;
    }
    LinkState& state = program_.link;
    if (link_.transport.PortOpen() && state.LinkUp == 1) {
        link_.connection.DisconnectUnit();
        state.LinkUp = 0;
    }
    desktop_.BusyOn();
    if (baud->Selected() >= 1) {
        program_.preferences.ComBaudRate = kBaudRates[baud->Selected() - 1];
    }
    if (port->Selected() >= 1) {
        program_.preferences.ComPortNumber = static_cast<qint16>(port->Selected());
    }
    link_.connection.ConnectUnit();
    close();
}

void Comset::comset_cbabbruch_Click() { close(); }

void Comset::comset_Command1_Click() {
    const auto operation = link_.gate.Begin();
    if (!operation) {
        return;
    }
    link_.connection.AutoSearchUnit();
    if (program_.link.LinkUp == 1) {
        close();
    }
}
