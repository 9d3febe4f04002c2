#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "simulator/Faults.h"

namespace sim {

// What a reply turns into on its way to the line.
struct ShapedReply {
    std::string bytes;     // with its CR, if it gets one; may be empty
    bool endless = false;  // filler follows until the faults change
};

// Applies the faults in force and keeps their counts. Has no clock of its own.
class FaultGate {
  public:
    using TimePoint = std::chrono::steady_clock::time_point;

    // Puts faults in force; their counts and the stall interval start at `now`.
    void Set(const Faults& faults, TimePoint now);

    // Counts one line; true if the device vanishes instead of serving it.
    bool VanishesAtLine();

    // Counts one query and returns what goes out for its sound reply.
    ShapedReply Shape(const std::string& query, const std::string& reply);

    // The end of the stall that is on at `now`, or nothing.
    std::optional<TimePoint> StallEnd(TimePoint now) const;

    std::chrono::milliseconds ByteDelay() const { return faults_.byteDelay; }

  private:
    std::string WordsOf(const std::string& query, const std::string& reply) const;

    Faults faults_;
    TimePoint setAt_;
    unsigned queries_ = 0;
    unsigned lines_ = 0;
};

}  // namespace sim
