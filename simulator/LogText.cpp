#include "simulator/LogText.h"

#include <array>
#include <cstdio>

namespace sim {
namespace {

std::string Readable(const std::string& bytes) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    std::string text;
    for (const char value : bytes) {
        const auto code = static_cast<unsigned char>(value);
        if (value == '\r') {
            text += "<CR>";
        } else if (value == '\n') {
            text += "<LF>";
        } else if (code < 0x20 || code > 0x7E) {
            text += {'<', kHexDigits[code >> 4], kHexDigits[code & 0x0F], '>'};
        } else {
            text += value;
        }
    }
    return text;
}

}  // namespace

std::string LogText(const LogEntry& entry, std::chrono::steady_clock::time_point start) {
    const auto sinceStart = std::chrono::duration_cast<std::chrono::microseconds>(entry.at - start).count();
    constexpr long kMicrosecondsPerSecond = 1'000'000;
    std::array<char, 48> stamp{};
    const int length = std::snprintf(stamp.data(), stamp.size(), "%6ld.%06ld", sinceStart / kMicrosecondsPerSecond,
                                     sinceStart % kMicrosecondsPerSecond);
    return std::string(stamp.data(), static_cast<std::size_t>(length)) + (entry.fromPanel ? " rx " : " tx ") +
           Readable(entry.bytes) + (entry.understood ? "" : "  (not understood)");
}

}  // namespace sim
