#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <string>

#include "simulator/Faults.h"

namespace sim {

// One line or reply, or a part of a reply that got no CR.
struct LogEntry {
    std::chrono::steady_clock::time_point at;  // when its last byte was through
    bool fromPanel = false;
    bool understood = true;  // false for bytes from the panel at settings that are not the line's
    std::string bytes = {};  // with the CR
};

// The rates in baud that the instrument can be set to.
inline constexpr std::array kInstrumentRatesBaud{4800, 9600, 19200, 38400, 115200};

// How a simulated instrument is set up before it starts.
struct Options {
    int rate = 0;                // 4800, 9600, 19200, 38400 or 115200 baud that it listens at; 0: any settings do
    bool silentOffRate = false;  // at other settings: no answer; else a line of noise for each line
    bool realTime = false;       // bytes take their time at the rate that the panel has set; else as fast as possible
    std::string model = "KL5276-2";
    std::string versionText = "V1.20 Kx";
    std::string linkPath = {};  // symbolic link to the device; none if empty
    Faults faults = {};
    std::function<void(const LogEntry&)> logSink = {};  // called from the instrument's thread, which waits for it
};

}  // namespace sim
