#include "recording/Units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace recording {
namespace {

using std::string_view;

// Of the prefixes for seconds only those below one are in use: "Ms" is meant as milliseconds as often as not.
enum class Prefixes { None, Small, All };

struct BaseUnit {
    string_view symbol;
    string_view words;  // in small letters, each between blanks
    Prefixes prefixes;
    double scale;
};

constexpr auto kUnits = std::to_array<BaseUnit>({
    {"", " ", Prefixes::None, 1.0},
    {"V", " volt volts ", Prefixes::All, 1.0},
    {"s", " second seconds sec secs ", Prefixes::Small, 1.0},
    {"A", " ampere amperes amp amps ", Prefixes::All, 1.0},
    {"W", " watt watts ", Prefixes::All, 1.0},
    {"Hz", " hertz ", Prefixes::All, 1.0},
    {"Sa/s", " s/s sps samples/s sa/sec samples/sec samples/second ", Prefixes::All, 1.0},
    {"\316\251", " ohm ohms ", Prefixes::All, 1.0},
    {"F", " farad farads ", Prefixes::All, 1.0},
    {"H", " henry ", Prefixes::All, 1.0},
    {"N", " newton ", Prefixes::All, 1.0},
    {"Pa", " pascal ", Prefixes::All, 1.0},
    {"K", " kelvin ", Prefixes::None, 1.0},
    {"J", " joule ", Prefixes::All, 1.0},
    {"VA", " ", Prefixes::All, 1.0},
    {"Vpp", " ", Prefixes::All, 1.0},
    {"Vrms", " ", Prefixes::All, 1.0},
    {"\302\260C", " celsius degc ", Prefixes::None, 1.0},
    {"\302\260F", " fahrenheit degf ", Prefixes::None, 1.0},
    {"\302\260", " deg degree degrees ", Prefixes::None, 1.0},
    {"rad", " radian radians ", Prefixes::None, 1.0},
    {"%", " percent ", Prefixes::None, 1.0},
    {"dB", " decibel ", Prefixes::None, 1.0},
    {"dBm", " ", Prefixes::None, 1.0},
    {"dBV", " ", Prefixes::None, 1.0},
    {"bar", " ", Prefixes::All, 1.0},
    // Times that are no powers of ten apart.
    {"min", " minute minutes ", Prefixes::None, 60.0},
    {"day", " days ", Prefixes::None, 86400.0},
    {"h", " hour hours ", Prefixes::None, 3600.0},
});
// Places in that table.
constexpr int kSeconds = 2;
constexpr int kHertz = 5;
constexpr int kSamplesPerSecond = 6;
constexpr std::size_t kFirstLongTime = kUnits.size() - 3;

struct Prefix {
    string_view text;
    double scale;
};

// The longer ones first.
constexpr auto kPrefixes = std::to_array<Prefix>({{"Meg", 1e6},
                                                  {"\302\265", 1e-6},
                                                  {"u", 1e-6},
                                                  {"n", 1e-9},
                                                  {"m", 1e-3},
                                                  {"p", 1e-12},
                                                  {"f", 1e-15},
                                                  {"k", 1e3},
                                                  {"K", 1e3},
                                                  {"M", 1e6},
                                                  {"G", 1e9},
                                                  {"T", 1e12}});

// In front of words alone.
constexpr auto kPrefixWords = std::to_array<Prefix>(
    {{"milli", 1e-3}, {"micro", 1e-6}, {"nano", 1e-9}, {"pico", 1e-12}, {"kilo", 1e3}, {"mega", 1e6}, {"giga", 1e9}});

std::string Small(string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return small;
}

Unit At(std::size_t index, double scale) {
    const bool isTime = index >= kFirstLongTime;
    return {isTime ? kSeconds : static_cast<int>(index), scale * kUnits[index].scale};
}

bool IsWordOf(const BaseUnit& unit, const std::string& small) {
    return unit.words.find(' ' + small + ' ') != string_view::npos;
}

bool IsNamed(const BaseUnit& unit, string_view text) {
    // Headers in capitals or in small letters only.
    return text == unit.symbol || (text == "v" && unit.symbol == "V") || (text == "S" && unit.symbol == "s") ||
           IsWordOf(unit, Small(text));
}

bool Takes(const BaseUnit& unit, double prefix) {
    return unit.prefixes == Prefixes::All || (unit.prefixes == Prefixes::Small && prefix < 1.0);
}

std::optional<Unit> Find(string_view text, const std::optional<double>& prefix) {
    for (std::size_t i = 1; i < kUnits.size(); ++i) {
        if ((!prefix || Takes(kUnits[i], *prefix)) && IsNamed(kUnits[i], text)) {
            return At(i, prefix.value_or(1.0));
        }
    }
    return std::nullopt;
}

// "milliseconds" or "Micro Volts"
std::optional<Unit> FindWritten(string_view text) {
    const std::string small = Small(text);
    for (const Prefix& prefix : kPrefixWords) {
        if (!small.starts_with(prefix.text)) {
            continue;
        }
        const std::size_t word = std::min(small.find_first_not_of(" -", prefix.text.size()), small.size());
        for (std::size_t i = 1; i < kUnits.size(); ++i) {
            if (Takes(kUnits[i], prefix.scale) && IsWordOf(kUnits[i], small.substr(word))) {
                return At(i, prefix.scale);
            }
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Unit> ReadUnit(string_view text) {
    if (text.empty()) {
        return std::nullopt;
    }
    if (text.find(' ') != string_view::npos) {
        return FindWritten(text);
    }
    std::optional<Unit> unit = Find(text, std::nullopt);
    for (std::size_t i = 0; !unit && i < kPrefixes.size(); ++i) {
        if (const Prefix& prefix = kPrefixes[i]; text.starts_with(prefix.text) && text.size() > prefix.text.size()) {
            unit = Find(text.substr(prefix.text.size()), prefix.scale);
        }
    }
    return unit ? unit : FindWritten(text);
}

std::optional<Unit> ReadCellUnit(string_view text) {
    const auto* const prefix = std::ranges::find(kPrefixes, text, &Prefix::text);
    // A capital K alone is a temperature.
    return prefix != kPrefixes.end() && text != "K" ? Unit{0, prefix->scale} : ReadUnit(text);
}

QString UnitSymbol(int base) {
    const string_view symbol = kUnits[static_cast<std::size_t>(base)].symbol;
    return QString::fromUtf8(symbol.data(), static_cast<qsizetype>(symbol.size()));
}

bool IsSeconds(const Unit& unit) { return unit.base == kSeconds; }
bool IsHertz(const Unit& unit) { return unit.base == kHertz; }
bool IsSampleRate(const Unit& unit) { return unit.base == kSamplesPerSecond; }

QString WithPrefix(double value, const QString& unit) {
    constexpr std::array<const char*, 9> kSymbols{"f", "p", "n", "\302\265", "m", "", "k", "M", "G"};
    constexpr int kNone = 5;
    constexpr int kDigits = 6;
    int index = kNone;
    if (value != 0.0 && std::isfinite(value) && !unit.isEmpty()) {
        // Rounded first, so that 999.9999999 ns becomes 1 us.
        const double rounded = QString::number(std::fabs(value), 'g', kDigits).toDouble();
        const double thousands = std::floor(std::log10(rounded) / 3.0 + 1e-9);
        index = static_cast<int>(std::clamp(thousands + kNone, 0.0, kSymbols.size() - 1.0));
    }
    const QString number = QString::number(value * std::pow(10.0, 3 * (kNone - index)), 'g', kDigits);
    return unit.isEmpty() ? number : QString(number + u' ' + QString::fromUtf8(kSymbols.at(std::size_t(index))) + unit);
}

}  // namespace recording
