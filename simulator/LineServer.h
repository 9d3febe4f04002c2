#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/FaultGate.h"
#include "simulator/Kl5276.h"
#include "simulator/Options.h"
#include "simulator/PtyLine.h"
#include "simulator/TimedBytes.h"

namespace sim {

// What the server of a line waits for before it has anything to do again.
struct LineWait {
    int descriptor = -1;  // -1 when the device is gone
    bool forInput = false;
    bool forOutput = false;
    std::optional<TimePoint> until;
};

// Joins the instrument to its line: fetches and paces bytes, makes texts of them, sends the replies. Has no thread
// and never waits.
class LineServer {
  public:
    explicit LineServer(const Options& options);

    // Makes the device and its link. False with the reason in `error`; nothing is left behind then.
    bool Open(std::string* error);

    // Takes the device away; what was on its way in either direction is lost. The link stays.
    void Close();
    void RemoveLink() { line_.RemoveLink(); }

    void SetFaults(const Faults& faults);

    // Does all that is due at `now`.
    void Serve(TimePoint now);
    LineWait NextWait(TimePoint now) const;

    bool IsOpen() const { return line_.IsOpen(); }
    const std::string& DevicePath() const { return line_.DevicePath(); }
    const std::string& Received() const { return received_; }
    const std::vector<std::string>& Lines() const { return lines_; }
    const std::string& Sent() const { return sent_; }
    void ClearLog();

    // The entries that have come up since the last call.
    std::vector<LogEntry> TakeLog();

    Kl5276 instrument;

  private:
    std::size_t FifoBytes() const;
    Nanoseconds ByteTime() const;
    void Fetch(TimePoint now);
    bool Deliver(TimePoint now);
    void TakeByte(const TimedByte& byte);
    void EndLine(TimePoint at);
    void Answer(const std::string& text, TimePoint at);
    void Queue(std::string_view bytes, TimePoint notBefore);
    void Send(TimePoint now);
    void LogSent(std::string_view bytes, TimePoint now);

    const Options options_;
    PtyLine line_;
    FaultGate gate_;
    LineSettings settings_;
    TimedBytes incoming_;
    TimedBytes outgoing_;
    bool backlogged_ = false;  // the panel's side held more than the FIFO took
    bool endless_ = false;
    std::string unsent_;  // due, but the panel's side is full

    std::string text_;
    bool textUnderstood_ = true;

    std::string received_;
    std::vector<std::string> lines_;
    std::string sent_;
    std::string unloggedSent_;
    std::vector<LogEntry> log_;
};

}  // namespace sim
