#pragma once

#include <QProgressBar>
#include <QTimer>
#include <functional>

#include "link/TransferPace.h"

// The progress bar `status`. The bar shows the points that were handed over, its text how far the line is: percent, and
// the time until it is free.
class TransferBar : public QProgressBar {
    Q_OBJECT

  public:
    TransferBar(std::function<TransferProgress()> progress, QWidget* parent);

    // A transfer of the addresses from 0 to `last` begins.
    void Begin(int last);
    // The point at this address is done; painted at once.
    void ShowPoint(int address);
    void End();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void ShowProgress();
    void TakeColours();

    std::function<TransferProgress()> progress_;
    QTimer look_;  // while a full port or a drained line keeps the points waiting
};
