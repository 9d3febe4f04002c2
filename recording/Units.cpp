#include "recording/Units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace recording {
namespace {

using std::string_view;

struct BaseUnit {
    string_view symbol;
    string_view words;  // in small letters, each between blanks
    bool takesPrefix;
    double scale;
};

constexpr auto kUnits = std::to_array<BaseUnit>({
    {"", " ", false, 1.0},
    {"V", " volt volts ", true, 1.0},
    {"s", " second seconds sec secs ", true, 1.0},
    {"A", " ampere amperes amp amps ", true, 1.0},
    {"W", " watt watts ", true, 1.0},
    {"Hz", " hertz ", true, 1.0},
    {"Sa/s", " s/s sps samples/s sa/sec samples/sec samples/second ", true, 1.0},
    {"\316\251", " ohm ohms ", true, 1.0},
    {"F", " farad farads ", true, 1.0},
    {"H", " henry ", true, 1.0},
    {"N", " newton ", true, 1.0},
    {"Pa", " pascal ", true, 1.0},
    {"K", " kelvin ", false, 1.0},
    {"J", " joule ", true, 1.0},
    {"VA", " ", true, 1.0},
    {"Vpp", " ", true, 1.0},
    {"Vrms", " ", true, 1.0},
    {"\302\260C", " celsius degc ", false, 1.0},
    {"\302\260F", " fahrenheit degf ", false, 1.0},
    {"\302\260", " deg degree degrees ", false, 1.0},
    {"rad", " radian radians ", false, 1.0},
    {"%", " percent ", false, 1.0},
    {"dB", " decibel ", false, 1.0},
    {"dBm", " ", false, 1.0},
    {"dBV", " ", false, 1.0},
    {"bar", " ", true, 1.0},
    // Times that are no powers of ten apart.
    {"min", " minute minutes ", false, 60.0},
    {"h", " hour hours ", false, 3600.0},
});
constexpr int kSeconds = 2;
constexpr int kHertz = 5;
constexpr int kSamplesPerSecond = 6;
constexpr std::size_t kFirstLongTime = kUnits.size() - 2;

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

std::string Small(string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return small;
}

Unit At(std::size_t index, double scale) {
    const bool isTime = index >= kFirstLongTime;
    return {isTime ? kSeconds : static_cast<int>(index), scale * kUnits[index].scale};
}

bool IsNamed(const BaseUnit& unit, string_view text) {
    // Headers in capitals or in small letters only.
    return text == unit.symbol || (text == "v" && unit.symbol == "V") || (text == "S" && unit.symbol == "s") ||
           unit.words.find(' ' + Small(text) + ' ') != string_view::npos;
}

std::optional<Unit> Find(string_view text, bool prefixed, double scale) {
    for (std::size_t i = 1; i < kUnits.size(); ++i) {
        if ((!prefixed || kUnits[i].takesPrefix) && IsNamed(kUnits[i], text)) {
            return At(i, scale);
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Unit> ReadUnit(string_view text) {
    if (text.empty() || text.find(' ') != string_view::npos) {
        return std::nullopt;
    }
    std::optional<Unit> unit = Find(text, false, 1.0);
    for (std::size_t i = 0; !unit && i < kPrefixes.size(); ++i) {
        if (const Prefix& prefix = kPrefixes[i]; text.starts_with(prefix.text) && text.size() > prefix.text.size()) {
            unit = Find(text.substr(prefix.text.size()), true, prefix.scale);
        }
    }
    return unit;
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
