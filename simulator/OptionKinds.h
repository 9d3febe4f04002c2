#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <optional>
#include <string>

namespace sim {

// A usage that the program does not take; the sentence why goes to the standard error.
inline constexpr int kBadUsageStatus = 2;

// The kinds of options that both programs have. Of an option given twice the last one counts.

inline void SetUp(CLI::App& app) {
    app.set_help_flag("--help", "print this text");
    app.option_defaults()->take_last();
}

inline void AddSwitch(CLI::App& app, const std::string& name, bool& target, const std::string& help) {
    app.add_flag(name, target, help)->disable_flag_override();
}

// The status to end with after a request for help or a usage that is not taken; nothing if the program is to run.
inline std::optional<int> Parse(CLI::App& app, int argc, const char* const* argv) {
    try {
        app.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::ParseError& outcome) {
        return app.exit(outcome) == 0 ? 0 : kBadUsageStatus;
    }
}

template <typename Count>
void AddCount(CLI::App& app, const std::string& name, std::optional<Count>& target, const std::string& help) {
    app.add_option(name, target, help)->check(CLI::Range(0, 1'000'000'000))->type_name("N");
}

inline const CLI::Range kUpToAnHourMs(0, 3'600'000);

inline void AddMilliseconds(CLI::App& app, const std::string& name, std::chrono::milliseconds& target,
                            const std::string& help) {
    app.add_option_function<int>(
           name, [&target](int ms) { target = std::chrono::milliseconds(ms); }, help)
        ->check(kUpToAnHourMs)
        ->type_name("MS");
}

// One that may be given several times, with one value each.
template <typename Values>
CLI::Option* AddRepeatable(CLI::App& app, const std::string& name, Values& target, const std::string& help) {
    return app.add_option(name, target, help)->take_all()->allow_extra_args(false);
}

inline CLI::Option* AddText(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
    return app.add_option(name, target, help)->type_name("TEXT");
}

inline const CLI::Validator kNotEmpty([](std::string& text) { return text.empty() ? "it is empty" : std::string(); },
                                      "");

}  // namespace sim
