#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "core/ProgramState.h"
#include "link/Link.h"
#include "panel/PortDescriber.h"
#include "widgets/OptionGroup.h"

// The dialog comset, "Serial port setup": port, rate, and the automatic search. Shown without blocking Main. It only
// hides when it closes, since it may be closed in the middle of its own search; each opening loads it anew.
class Comset : public QDialog {
    Q_OBJECT

  public:
    Comset(ProgramState& program, Link& link, Desktop& desktop, PortDescriber describePort, QWidget* parent);

    // Selects the port and the rate in force.
    void comset_Form_Load();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void DescribePort(int number);
    void comset_cbok_Click();
    void comset_cbabbruch_Click();
    void comset_Command1_Click();
    void Arrange();

    ProgramState& program_;
    Link& link_;
    Desktop& desktop_;
    PortDescriber describePort_;
    OptionGroup* port;
    OptionGroup* baud;
    QLabel* portDevice;  // what is behind the selected port
    QPushButton *cbok, *cbabbruch, *Command1;
};
