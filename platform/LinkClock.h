#pragma once

#include <QtGlobal>

// The link's clock. An interface, so that tests run hours in no time.
class LinkClock {
  public:
    virtual ~LinkClock() = default;

    // Milliseconds since any fixed moment.
    virtual qint64 NowMs() const = 0;
    // Waits while events go on being served. A negative argument becomes 1, one above 10000 becomes 10000, in place.
    // A wait within a wait takes no time.
    virtual void WaitMs(qint32& ms) = 0;

    // Serves the events that are due.
    void ServeEvents() {
        qint32 none = 0;
        WaitMs(none);
    }
};
