#pragma once

#include <QDialog>
#include <QPushButton>

#include "core/ProgramState.h"
#include "link/Link.h"
#include "platform/OptionGroup.h"

// The dialog comset, "Serial port setup": port, rate, and the automatic search. Shown without blocking Main. It only
// hides when it closes, since it may be closed in the middle of its own search.
class Comset : public QDialog {
    Q_OBJECT

  public:
    // `describePort` says which device is behind a port number, for the tool tips.
    using PortDescriber = std::function<QString(int number, bool openHere)>;

    Comset(ProgramState& program, Link& link, Desktop& desktop, const PortDescriber& describePort, QWidget* parent);

    OptionGroup* port;
    OptionGroup* baud;
    QPushButton *cbok, *cbabbruch, *Command1;

  private:
    void comset_Form_Load(const PortDescriber& describePort);
    void comset_cbok_Click();
    void comset_cbabbruch_Click();
    void comset_Command1_Click();
    void Arrange();

    ProgramState& program_;
    Link& link_;
    Desktop& desktop_;
};
