#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// One option of a program whose options are kept in a Program.
template <typename Program>
struct Option {
    std::string_view name;
    std::string_view value;  // what stands for the value in the help; empty for a switch
    std::string_view help;
    bool (*apply)(Program&, std::string_view);  // false if the value is out of bounds
};

// A whole decimal number from 0 to `highest`.
std::optional<long> WholeNumber(std::string_view text, long highest);

// Each takes over a value from its text; false if it is out of bounds.
template <typename Target>
bool SetNumber(Target& target, std::string_view text, long highest) {
    const auto value = WholeNumber(text, highest);
    if (value) {
        target = static_cast<Target>(*value);
    }
    return value.has_value();
}

template <typename Target>
bool SetCount(std::optional<Target>& target, std::string_view text) {
    constexpr long kLargestCount = 1'000'000'000;
    return SetNumber(target.emplace(), text, kLargestCount);
}

bool SetMilliseconds(std::chrono::milliseconds& target, std::string_view text);

// Reads a program's arguments (without its name). False, with a sentence for the user in `error`, for an unknown
// option, a missing or superfluous value, and a value out of bounds.
template <typename Program, std::size_t count>
bool ParseOptions(const std::array<Option<Program>, count>& table, const std::vector<std::string>& arguments,
                  Program* program, std::string* error) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        const std::string_view name = argument.substr(0, argument.find('='));
        const auto* option = std::ranges::find(table, name, &Option<Program>::name);
        if (option == table.end()) {
            *error = "unknown option '" + arguments[i] + "'";
            return false;
        }
        const bool joined = name.size() < argument.size();
        if (joined && option->value.empty()) {
            *error = std::string(name) + " takes no value";
            return false;
        }
        std::string_view value = joined ? argument.substr(name.size() + 1) : std::string_view();
        if (!joined && !option->value.empty()) {
            if (++i == arguments.size()) {
                *error = std::string(name) + " needs a value";
                return false;
            }
            value = arguments[i];
        }
        if (!option->apply(*program, value)) {
            *error = "bad value '" + std::string(value) + "' for " + std::string(name);
            return false;
        }
    }
    return true;
}

// The lines of --help, one for each option.
template <typename Program, std::size_t count>
std::string OptionLines(const std::array<Option<Program>, count>& table) {
    constexpr std::size_t kColumn = 24;
    std::string text;
    for (const auto& option : table) {
        std::string head = "  " + std::string(option.name) + " " + std::string(option.value);
        head.resize(std::max(kColumn + 2, head.size() + 1), ' ');
        text += head + std::string(option.help) + "\n";
    }
    return text;
}

}  // namespace sim
