#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "simulator/LineServer.h"
#include "simulator/Options.h"

namespace sim {

// A KL5276 on a serial line of its own, served by a thread. Start and Stop belong to the thread that made it; every
// other member may be called from any thread but the log sink's.
class SimulatedInstrument {
  public:
    explicit SimulatedInstrument(const Options& options);
    ~SimulatedInstrument();
    SimulatedInstrument(const SimulatedInstrument&) = delete;
    SimulatedInstrument& operator=(const SimulatedInstrument&) = delete;

    // Makes the device and its link and begins to serve. False, with the reason in `error`, if the rate is none of
    // the instrument's, there is no pseudo-terminal, the link can't be made, or it runs already. After Stop it may be
    // started again: a new device, the same instrument with the settings and the log it had.
    bool Start(std::string* error);

    // Ends the service at once, takes the device away and removes the link. Harmless when it does not run.
    void Stop();

    // The device that the panel opens; that of the last Start once it is gone.
    std::string DevicePath() const;

    // Takes the device away as if its adapter were pulled: a panel that has it open sees a hang-up. The link stays
    // until Stop. The device is gone when the call returns.
    void Vanish();

    // False once the device has vanished, by the call or by a fault.
    bool IsThere() const;

    // Every byte from the panel since ClearLog, in order, also those that were not understood.
    std::string ReceivedBytes() const;

    // The texts that the instrument has read since ClearLog, without their CR.
    std::vector<std::string> ReceivedLines() const;

    // Every byte that the panel's side has taken since ClearLog.
    std::string SentBytes() const;
    void ClearLog();

    // Lets `action` look at or change the instrument while its line is not served. It must not call this object.
    void With(const std::function<void(Kl5276&)>& action);

    // Replaces all faults; their counts start anew. Default faults make line and instrument sound again.
    void SetFaults(const Faults& faults);

    // True as soon as the text is among ReceivedLines, and the instrument has acted on it; false after `atMost`.
    bool WaitForLine(const std::string& line, std::chrono::milliseconds atMost);

    // True as soon as ReceivedLines has at least `count` texts; false after `atMost`.
    bool WaitForLines(std::size_t count, std::chrono::milliseconds atMost);

  private:
    void Run();
    void Wake() const;
    void Sleep(const LineWait& wait) const;

    const std::function<void(const LogEntry&)> logSink_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    LineServer server_;
    bool stopping_ = false;
    bool vanishing_ = false;
    bool running_ = false;
    int wakeUp_ = -1;
    std::thread thread_;
};

}  // namespace sim
