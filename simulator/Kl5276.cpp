#include "simulator/Kl5276.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "simulator/StatusLine.h"

namespace sim {
namespace {

using std::string_view;

constexpr double kLowestHz = 0.0001;
constexpr double kHighestHz = 15e6;
constexpr double kHighestPhaseDegrees = 359.9;
constexpr int kLargestSample = 2047;

// Ranges 1 and 2 of the output stage by unit; every other level is put out by range 3.
struct RangeBounds {
    double low1, high1, low2, high2, highest;
};
constexpr RangeBounds kVppBounds{0.02, 0.2, 0.21, 2.0, 20.0};
constexpr RangeBounds kVrmsBounds{0.0071, 0.07, 0.071, 0.7, 7.07};

const RangeBounds& BoundsOf(LevelUnit unit) { return unit == LevelUnit::Vpp ? kVppBounds : kVrmsBounds; }

// Not printf: its decimal point follows the locale of the process, the instrument's does not.
std::string Fixed(double value, int decimals) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

// The whole text must be the number.
template <typename Number>
std::optional<Number> NumberOf(string_view text) {
    Number value{};
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

double Frequency(double hertz) { return std::clamp(hertz, kLowestHz, kHighestHz); }
double Phase(double degrees) { return std::clamp(degrees, 0.0, kHighestPhaseDegrees); }
double Depth(double percent) { return std::clamp(std::nearbyint(percent), 0.0, 100.0); }
double ToTenthMillivolt(double volts) { return std::round(volts * 1e4) / 1e4; }

double Level(double level, LevelUnit unit) {
    const RangeBounds& bounds = BoundsOf(unit);
    return std::clamp(ToTenthMillivolt(level), bounds.low1, bounds.highest);
}

void SetOffset(InstrumentState& s, double volts) {
    const double held = std::clamp(ToTenthMillivolt(volts), -5.0, 5.0);
    s.offsetOn = held != 0.0;
    if (s.offsetOn) {
        s.offsetVolts = held;
    }
}

// The voltage at the output stays; only the number for it changes.
void SetUnit(InstrumentState& s, LevelUnit unit) {
    constexpr double kVppPerVrms = 2.8284271247461903;
    if (s.levelUnit != unit) {
        s.levelUnit = unit;
        s.level = Level(unit == LevelUnit::Vpp ? s.level * kVppPerVrms : s.level / kVppPerVrms, unit);
    }
}

void EndKeying(InstrumentState& s, Keying keying) {
    if (s.keying == keying) {
        s.keying = Keying::Off;
    }
}

struct PlainCommand {
    string_view word;
    void (*act)(InstrumentState&);
};

using State = InstrumentState;
constexpr auto kPlainCommands = std::to_array<PlainCommand>({
    {"sin", [](State& s) { s.signal = Signal::Sine; }},
    {"sqr", [](State& s) { s.signal = Signal::Square; }},
    {"tri", [](State& s) { s.signal = Signal::Triangle; }},
    {"rmp", [](State& s) { s.signal = Signal::RampUp; }},
    {"rmn", [](State& s) { s.signal = Signal::RampDown; }},
    {"arb4", [](State& s) { s.signal = Signal::Arb4k; }},
    {"arb16", [](State& s) { s.signal = Signal::Arb16k; }},
    {"noise", [](State& s) { s.signal = Signal::WhiteNoise; }},
    {"pink", [](State& s) { s.signal = Signal::PinkNoise; }},
    {"ctm", [](State& s) { s.mode = Mode::FreeRunning; }},
    {"gtm+", [](State& s) { s.mode = Mode::GateHigh; }},
    {"gtm-", [](State& s) { s.mode = Mode::GateLow; }},
    {"trm+", [](State& s) { s.mode = Mode::TriggerRising; }},
    {"trm-", [](State& s) { s.mode = Mode::TriggerFalling; }},
    {"rfi", [](State& s) { s.internalReference = true; }},
    {"rfx", [](State& s) { s.internalReference = false; }},
    {"OT1", [](State& s) { s.outputOn = true; }},
    {"OT0", [](State& s) { s.outputOn = false; }},
    {"vpp", [](State& s) { SetUnit(s, LevelUnit::Vpp); }},
    {"vrms", [](State& s) { SetUnit(s, LevelUnit::Vrms); }},
    {"lin", [](State& s) { s.sweepLaw = Sweep::Linear; }},
    {"log", [](State& s) { s.sweepLaw = Sweep::Logarithmic; }},
    {"sw1", [](State& s) { s.sweep = s.sweepLaw; }},
    {"SW0", [](State& s) { s.sweep = Sweep::Off; }},
    {"am0", [](State& s) { s.am = AmSource::Off; }},
    {"amx", [](State& s) { s.am = AmSource::External; }},
    {"ami", [](State& s) { s.am = AmSource::Internal; }},
    {"fsk1", [](State& s) { s.keying = Keying::Frequency; }},
    {"fsk0", [](State& s) { EndKeying(s, Keying::Frequency); }},
    {"psk1", [](State& s) { s.keying = Keying::Phase; }},
    {"psk0", [](State& s) { EndKeying(s, Keying::Phase); }},
    {"arc4", [](State& s) { s.openMemory = OpenMemory::Points4k; }},
    {"arc16", [](State& s) { s.openMemory = OpenMemory::Points16k; }},
    {"are", [](State& s) { s.openMemory = OpenMemory::None; }},
    {"RM0", [](State&) {}},  // the front panel counts again
});

struct ValueCommand {
    string_view word;
    void (*act)(InstrumentState&, double);
};

constexpr auto kValueCommands = std::to_array<ValueCommand>({
    {"frq:", [](State& s, double v) { s.frequency = Frequency(v); }},
    {"stt:", [](State& s, double v) { s.sweepStart = Frequency(v); }},
    {"stp:", [](State& s, double v) { s.sweepStop = Frequency(v); }},
    {"swt:", [](State& s, double v) { s.sweepTime = std::clamp(v, 0.01, 40.0); }},
    {"fk0:", [](State& s, double v) { s.carrierFrequency = Frequency(v); }},
    {"fk1:", [](State& s, double v) { s.hopFrequency = Frequency(v); }},
    {"ph0:", [](State& s, double v) { s.phase0 = Phase(v); }},
    {"ph1:", [](State& s, double v) { s.phase1 = Phase(v); }},
    {"amx:", [](State& s, double v) { s.amDepth = Depth(v); }},
    {"ami:", [](State& s, double v) { s.amDepth = Depth(v); }},
    {"amp:", [](State& s, double v) { s.level = Level(v, s.levelUnit); }},
    {"ofs:", SetOffset},
});

struct Query {
    string_view word;
    std::string (*answer)(const Kl5276&);
};

// The offset is told in the steps of the range in force.
std::string AnswerOffset(const Kl5276& unit) {
    constexpr std::array<double, 3> kFactor{100.0, 10.0, 1.0};
    const double volts = unit.HeldOffsetVolts();
    return volts == 0.0 ? "0" : Fixed(volts * kFactor[static_cast<std::size_t>(unit.LevelRange() - 1)], 4);
}

constexpr auto kQueries = std::to_array<Query>({
    {"ID?", [](const Kl5276& u) { return u.state.model; }},
    {"VER?", [](const Kl5276& u) { return u.state.versionText; }},
    {"frq?", [](const Kl5276& u) { return Fixed(u.state.frequency, 4); }},
    {"stt?", [](const Kl5276& u) { return Fixed(u.state.sweepStart, 4); }},
    {"stp?", [](const Kl5276& u) { return Fixed(u.state.sweepStop, 4); }},
    {"swt?", [](const Kl5276& u) { return Fixed(u.state.sweepTime, 2); }},
    {"fk0?", [](const Kl5276& u) { return Fixed(u.state.carrierFrequency, 4); }},
    {"fk1?", [](const Kl5276& u) { return Fixed(u.state.hopFrequency, 4); }},
    {"ph0?", [](const Kl5276& u) { return Fixed(u.state.phase0, 1); }},
    {"ph1?", [](const Kl5276& u) { return Fixed(u.state.phase1, 1); }},
    {"amt?", [](const Kl5276& u) { return Fixed(u.state.amDepth, 0); }},
    {"amp?", [](const Kl5276& u) { return Fixed(u.state.level, 4); }},
    {"OFS?", AnswerOffset},
    {"sta?", [](const Kl5276& u) { return StatusLine(u.state); }},
});

struct PointLine {
    OpenMemory memory;
    std::size_t address;
    string_view value;  // behind the "="
};

// "arp4:<address>=<value>" and "arp16:<address>=<value>", with the address inside the memory.
std::optional<PointLine> PointLineOf(string_view text, const InstrumentState& state) {
    const bool small = text.starts_with("arp4:");
    if (!small && !text.starts_with("arp16:")) {
        return std::nullopt;
    }
    const std::size_t head = text.find(':') + 1;
    const std::size_t equals = text.find('=');
    if (equals == string_view::npos) {
        return std::nullopt;
    }
    const auto address = NumberOf<std::size_t>(text.substr(head, equals - head));
    if (!address || *address >= (small ? state.memory4k : state.memory16k).size()) {
        return std::nullopt;
    }
    return PointLine{small ? OpenMemory::Points4k : OpenMemory::Points16k, *address, text.substr(equals + 1)};
}

// Two-digit fields with commas between them, such as "31,12,99".
bool AreClockFields(string_view text, std::size_t fields) {
    if (text.size() != fields * 3 - 1) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool comma = i % 3 == 2;
        if (comma ? text[i] != ',' : (text[i] < '0' || text[i] > '9')) {
            return false;
        }
    }
    return true;
}

bool IsFieldWithin(string_view text, std::size_t field, int low, int high) {
    const auto value = NumberOf<int>(text.substr(field * 3, 2));
    return value && *value >= low && *value <= high;
}

// "time:hh,mm" or "date:dd,mm,yy". Nothing on the line reads the clock back.
bool IsClockText(const std::string& text) {
    const string_view fields = string_view(text).substr(std::min<std::size_t>(5, text.size()));
    if (text.starts_with("time:")) {
        return AreClockFields(fields, 2) && IsFieldWithin(fields, 0, 0, 23) && IsFieldWithin(fields, 1, 0, 59);
    }
    return text.starts_with("date:") && AreClockFields(fields, 3) && IsFieldWithin(fields, 0, 1, 31) &&
           IsFieldWithin(fields, 1, 1, 12);
}

}  // namespace

std::optional<std::string> Kl5276::Take(const std::string& text) {
    if (auto reply = AnswerQuery(text)) {
        return reply;
    }
    if (auto reply = AnswerMemory(text)) {
        return reply;
    }
    if (!TakeMemoryWrite(text) && !TakePlain(text) && !TakeValue(text) && !IsClockText(text)) {
        ++state.ignoredTexts;
    }
    return std::nullopt;
}

bool Kl5276::TakePlain(const std::string& text) {
    const auto* found = std::ranges::find(kPlainCommands, string_view(text), &PlainCommand::word);
    if (found == kPlainCommands.end()) {
        return false;
    }
    found->act(state);
    return true;
}

bool Kl5276::TakeValue(const std::string& text) {
    const string_view line(text);
    const auto* found =
        std::ranges::find_if(kValueCommands, [line](const ValueCommand& c) { return line.starts_with(c.word); });
    if (found == kValueCommands.end()) {
        return false;
    }
    const auto value = NumberOf<double>(line.substr(found->word.size()));
    if (!value || !std::isfinite(*value)) {
        return false;
    }
    found->act(state, *value);
    return true;
}

bool Kl5276::TakeMemoryWrite(const std::string& text) {
    const auto line = PointLineOf(text, state);
    const auto value = line ? NumberOf<int>(line->value) : std::nullopt;
    if (!value || line->memory != state.openMemory) {
        return false;
    }
    auto& memory = line->memory == OpenMemory::Points4k ? state.memory4k : state.memory16k;
    memory[line->address] = static_cast<std::int16_t>(std::clamp(*value, -kLargestSample, kLargestSample));
    return true;
}

std::optional<std::string> Kl5276::AnswerQuery(const std::string& text) const {
    const auto* found = std::ranges::find(kQueries, string_view(text), &Query::word);
    return found == kQueries.end() ? std::nullopt : std::optional(found->answer(*this));
}

std::optional<std::string> Kl5276::AnswerMemory(const std::string& text) const {
    const auto line = PointLineOf(text, state);
    if (!line || line->value != "?") {
        return std::nullopt;
    }
    const auto& memory = line->memory == OpenMemory::Points4k ? state.memory4k : state.memory16k;
    return text.substr(0, text.size() - 1) + std::to_string(memory[line->address]);
}

int Kl5276::LevelRange() const {
    const RangeBounds& bounds = BoundsOf(state.levelUnit);
    if (state.level >= bounds.low1 && state.level <= bounds.high1) {
        return 1;
    }
    return state.level >= bounds.low2 && state.level <= bounds.high2 ? 2 : 3;
}

double Kl5276::HeldOffsetVolts() const {
    constexpr std::array<double, 3> kLargestVolts{0.05, 0.5, 5.0};
    const double largest = kLargestVolts[static_cast<std::size_t>(LevelRange() - 1)];
    return state.offsetOn ? std::clamp(state.offsetVolts, -largest, largest) : 0.0;
}

}  // namespace sim
