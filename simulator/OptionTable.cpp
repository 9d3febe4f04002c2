#include "simulator/OptionTable.h"

#include <charconv>

namespace sim {

std::optional<long> WholeNumber(std::string_view text, long highest) {
    long value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
    return whole && value >= 0 && value <= highest ? std::optional(value) : std::nullopt;
}

bool SetMilliseconds(std::chrono::milliseconds& target, std::string_view text) {
    constexpr long kLongestMs = 3'600'000;
    const auto value = WholeNumber(text, kLongestMs);
    target = std::chrono::milliseconds(value.value_or(0));
    return value.has_value();
}

}  // namespace sim
