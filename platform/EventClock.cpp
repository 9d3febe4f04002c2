#include "platform/EventClock.h"

#include <QCoreApplication>
#include <QThread>
#include <algorithm>

namespace {
constexpr qint32 kLongestWaitMs = 10000;
constexpr qint32 kFineWaitMs = 1;
constexpr qint64 kFineStepUs = 200;
}  // namespace

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
    const qint64 dueUs = NowUs() + qint64{ms} * 1000;
    // A timer of the event loop is up to a millisecond late whenever an event comes in the middle of the wait, as the
    // bytes of a reply do. So the loop sleeps until shortly before the end, and the rest is waited out in small steps.
    if (ms > kFineWaitMs) {
        WaitDone = false;
        Timer2.start(ms - kFineWaitMs);
        while (!WaitDone) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    QCoreApplication::processEvents();
    for (qint64 leftUs = dueUs - NowUs(); leftUs > 0; leftUs = dueUs - NowUs()) {
        QThread::usleep(static_cast<unsigned long>(std::min(leftUs, kFineStepUs)));
        QCoreApplication::processEvents();
    }
    WaitActive = false;
}
