#pragma once

#include <algorithm>
#include <chrono>
#include <deque>
#include <optional>

namespace sim {

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;
using Nanoseconds = std::chrono::nanoseconds;

// A byte on the line and the moment at which its last bit is through.
struct TimedByte {
    char value = 0;
    bool understood = true;  // taken at the line settings that the instrument needs
    TimePoint due;
};

// The bytes of one direction that are on their way. Each is due one byte time after the one before it, or after the
// moment it was handed over if the line was idle by then. The times never depend on when the bytes were fetched, so
// a late thread loses nothing: what fell due meanwhile comes at once, and the long-run rate is that of the line.
class TimedBytes {
  public:
    void Add(char value, bool understood, TimePoint notBefore, Nanoseconds byteTime) {
        lastDue_ = std::max(lastDue_, notBefore) + byteTime;
        bytes_.push_back({value, understood, lastDue_});
    }

    std::optional<TimedByte> TakeDue(TimePoint now) {
        if (bytes_.empty() || bytes_.front().due > now) {
            return std::nullopt;
        }
        const TimedByte byte = bytes_.front();
        bytes_.pop_front();
        return byte;
    }

    // Paces what is still on its way anew, from `now`.
    void Repace(TimePoint now, Nanoseconds byteTime) {
        lastDue_ = now;
        for (TimedByte& byte : bytes_) {
            byte.due = lastDue_ += byteTime;
        }
    }

    void Clear() { bytes_.clear(); }
    std::size_t Count() const { return bytes_.size(); }

    // When the next byte is due. Only while there is one.
    TimePoint NextDue() const { return bytes_.front().due; }

    // When the first CR is due, or the last byte if there is no CR. Only while there is a byte.
    TimePoint LineDue() const {
        const auto cr = std::ranges::find(bytes_, '\r', &TimedByte::value);
        return cr == bytes_.end() ? bytes_.back().due : cr->due;
    }

  private:
    std::deque<TimedByte> bytes_;
    TimePoint lastDue_;
};

}  // namespace sim
