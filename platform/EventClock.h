#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include "platform/LinkClock.h"

// The clock of the running program: WaitMs is an event pump with the timer Timer2.
class EventClock : public LinkClock {
  public:
    EventClock();

    qint64 NowMs() const override;
    void WaitMs(qint32& ms) override;

  private:
    qint64 NowUs() const { return elapsed_.nsecsElapsed() / 1000; }

    QElapsedTimer elapsed_;
    QTimer Timer2;
    bool WaitActive = false;
    bool WaitDone = false;
};
