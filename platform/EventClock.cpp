#include "platform/EventClock.h"

#include <QCoreApplication>
#include <algorithm>

namespace {
constexpr qint32 kLongestWaitMs = 10000;
}

EventClock::EventClock() {
    elapsed_.start();
    Timer2.setObjectName(QStringLiteral("Timer2"));
    Timer2.setTimerType(Qt::PreciseTimer);
    Timer2.setSingleShot(true);
    Timer2.setInterval(1);
    QObject::connect(&Timer2, &QTimer::timeout, &Timer2, [this] { WaitDone = true; });
}

qint64 EventClock::NowMs() const { return elapsed_.elapsed(); }

void EventClock::WaitMs(qint32& ms) {
    ms = ms < 0 ? 1 : std::min(ms, kLongestWaitMs);
    if (WaitActive) {
        return;
    }
    WaitActive = true;
    WaitDone = false;
    Timer2.start(ms);
    while (!WaitDone) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    WaitActive = false;
}
