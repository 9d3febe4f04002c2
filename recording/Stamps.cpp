// Times of day and dates, as loggers write them beside their samples.

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "recording/Cells.h"
#include "recording/Units.h"

namespace recording {
namespace {

using std::string_view;

constexpr std::size_t kLongestDate = 20;  // in front of the time
constexpr double kMinute = 60.0;
constexpr double kHalfDay = 12.0 * 3600.0;
constexpr double kNoTime = std::numeric_limits<double>::quiet_NaN();

double DigitsAt(string_view text) {
    double value = 0.0;
    for (const char digit : text) {
        value = 10.0 * value + (digit - '0');
    }
    return value;
}

// "AM" or "PM" at the end, which it takes away; nothing else.
double TakeHalfOfDay(string_view* text) {
    for (const auto& [suffix, hours] :
         {std::pair(string_view("AM"), 0.0), {"PM", kHalfDay}, {"am", 0.0}, {"pm", kHalfDay}}) {
        if (text->ends_with(suffix)) {
            *text = Trimmed(text->substr(0, text->size() - suffix.size()));
            return hours;
        }
    }
    return -1.0;
}

// Takes the digits at the end of the text. NaN if there are none.
double TakeNumber(string_view* text) {
    std::size_t begin = text->size();
    while (begin > 0 && IsDigit((*text)[begin - 1])) {
        --begin;
    }
    const string_view digits = text->substr(begin);
    *text = text->substr(0, begin);
    return digits.empty() ? kNoTime : DigitsAt(digits);
}

// Takes ".25" or ",25" at the end of the text; 0 if there is none behind the last colon.
double TakeFraction(string_view* text) {
    const std::size_t mark = text->find_first_of(".,", text->rfind(':'));
    if (mark == string_view::npos) {
        return 0.0;
    }
    const string_view digits = text->substr(mark + 1);
    *text = text->substr(0, mark);
    return DigitsAt(digits) / std::pow(10.0, static_cast<double>(digits.size()));
}

// Takes the last part of "12:30:05:250", as some loggers write the thousandths; else 0.
double TakeThousandths(string_view* text) {
    constexpr std::size_t kDigits = 3;
    const std::size_t colon = text->rfind(':');
    if (std::ranges::count(*text, ':') != 3 || text->size() != colon + 1 + kDigits) {
        return 0.0;
    }
    const double value = DigitsAt(text->substr(colon + 1));
    *text = text->substr(0, colon);
    return value / 1000.0;
}

// "Z" or "+01:00" behind the time.
void DropZone(string_view* text) {
    constexpr std::size_t kZone = 6;
    if (text->ends_with('Z')) {
        text->remove_suffix(1);
    } else if (text->size() > kZone && text->find(':') < text->size() - kZone) {
        const string_view zone = text->substr(text->size() - kZone);
        text->remove_suffix((zone[0] == '+' || zone[0] == '-') && zone[3] == ':' ? kZone : 0);
    }
}

// "12:30", "12:30:05.25" or "30:05.25" at the end of the text, in seconds.
double TakeClock(string_view* text, bool* isTwoParts) {
    const double half = TakeHalfOfDay(text);
    DropZone(text);
    const std::size_t colon = text->rfind(':');
    if (colon == string_view::npos || text->find_first_not_of("0123456789.,", colon + 1) != string_view::npos ||
        text->find_first_of(".,", colon) != text->find_last_of(".,", string_view::npos)) {
        return kNoTime;
    }
    const std::size_t length = text->size();
    const double fraction = TakeFraction(text);
    const bool hasFraction = text->size() < length;
    const double thousandths = hasFraction ? 0.0 : TakeThousandths(text);
    std::array<double, 3> parts{};
    std::size_t count = 0;
    for (bool more = true; more && count < parts.size(); ++count) {
        parts.at(count) = TakeNumber(text);
        more = text->ends_with(':');
        text->remove_suffix(more ? 1 : 0);
    }
    *isTwoParts = count == 2 && !hasFraction && half < 0.0;
    const bool hasSeconds = count == 3 || hasFraction;  // two parts are hours and minutes
    const bool isLetter =
        !text->empty() && text->back() != 'T' && (text->back() | 0x20) >= 'a' && (text->back() | 0x20) <= 'z';
    if (isLetter || parts[0] > kMinute || (count == 3 && parts[1] >= kMinute)) {
        return kNoTime;  // "A0:254" is none
    }
    const double seconds =
        fraction + thousandths + (hasSeconds ? 1.0 : kMinute) * (parts[0] + kMinute * (parts[1] + kMinute * parts[2]));
    return half >= 0.0 ? std::fmod(seconds, kHalfDay) + half : seconds;
}

// 1 for a day, 2 for January and so on; 0 for any other word.
int DayOrMonth(string_view word) {
    constexpr auto kMonths = std::to_array<string_view>(
        {"jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"});
    constexpr string_view kDays = " mon tue wed thu fri sat sun ";
    constexpr std::size_t kLongestName = 9;
    if (word.size() < 3 || word.size() > kLongestName ||
        !std::ranges::all_of(word, [](char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; })) {
        return 0;
    }
    std::string small;
    std::ranges::transform(word.substr(0, 3), std::back_inserter(small), [](char c) { return char(c | 0x20); });
    const auto* const month = std::ranges::find(kMonths, small);
    const bool isDay = kDays.find(' ' + small + ' ') != string_view::npos;
    return month != kMonths.end() ? 2 + static_cast<int>(month - kMonths.begin()) : isDay ? 1 : 0;
}

// "2024-11-05", "5/11/24" or "05.11.2024"
std::optional<Date> ReadDate(string_view text) {
    const std::size_t first = text.find_first_of("-/.");
    const std::size_t second = first == string_view::npos ? first : text.find(text[first], first + 1);
    if (second == string_view::npos || first == 0 || second == first + 1 || second + 1 == text.size()) {
        return std::nullopt;
    }
    constexpr std::size_t kLongestPart = 4;
    if (std::ranges::count_if(text, IsDigit) + 2 != static_cast<std::ptrdiff_t>(text.size()) || first > kLongestPart ||
        second - first > 3 || text.size() - second > kLongestPart + 1) {
        return std::nullopt;
    }
    const auto part = [&text](std::size_t from, std::size_t to) {
        return static_cast<int>(DigitsAt(text.substr(from, to - from)));
    };
    return Date{part(0, first), part(first + 1, second), part(second + 1, text.size()), text[first] == '.'};
}

// "05 Nov 2024" or "Fri, Jan 5 2024"; without a year no whole date. Nothing for other texts.
std::optional<Date> ReadWrittenDate(string_view text) {
    constexpr int kDaysInMonth = 31;
    constexpr std::size_t kLongestNumber = 4;
    Date date;
    int numbers = 0;
    bool hasName = false;
    while (!(text = Trimmed(text)).empty()) {
        const std::size_t end = std::min(text.find_first_of(" ,-"), text.size());
        const string_view word = text.substr(0, end);
        const int name = DayOrMonth(word);
        if (const bool isNumber = end <= kLongestNumber && std::ranges::all_of(word, IsDigit); !isNumber && name == 0) {
            return std::nullopt;
        }
        if (end > 0 && name == 0) {
            const int number = static_cast<int>(DigitsAt(word));
            ++numbers;
            (number > kDaysInMonth ? date.first : date.third) = number;
        }
        date.second = name > 1 ? name - 1 : date.second;
        hasName = hasName || name > 0;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    const bool isWhole = numbers == 2 && date.first > 0 && date.second > 0 && date.third > 0;
    return numbers > 0 && hasName ? std::optional(isWhole ? date : Date{}) : std::nullopt;
}

// What stands in front of a time: a date, or words as short as the names of days. Nothing for other texts.
std::optional<Date> ReadDateText(string_view text) {
    if (text.ends_with('T')) {
        text.remove_suffix(1);
    }
    if (const std::optional<Date> written = ReadWrittenDate(text)) {
        return written;
    }
    Date date;
    for (text = Trimmed(text); !text.empty(); text = Trimmed(text)) {
        const std::size_t end = std::min(text.find_first_of(" ,"), text.size());
        const string_view word = text.substr(0, end);
        const std::optional<Date> read = ReadDate(word);
        if (word.size() > 3 && !read && DayOrMonth(word) == 0 && !std::ranges::all_of(word, IsDigit)) {
            return std::nullopt;
        }
        date = read.value_or(date);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return date;
}

}  // namespace

std::optional<Cell> ReadStamp(string_view text) {
    const bool hasDigit = std::ranges::any_of(text, IsDigit);
    Cell cell{.kind = CellKind::Stamp, .unit = kDate, .value = kNoTime};
    if (!hasDigit) {
        return DayOrMonth(text) > 0 ? std::optional(cell) : std::nullopt;
    }
    std::optional<Date> date = ReadDate(text);
    date = date ? date : ReadWrittenDate(text);
    if (date) {
        cell.date = *date;
        cell.value = date->first > 0 ? 0.0 : kNoTime;
        return cell;
    }
    bool isTwoParts = false;
    cell.value = TakeClock(&text, &isTwoParts);
    date = std::isnan(cell.value) || text.size() > kLongestDate ? std::nullopt : ReadDateText(text);
    if (!date) {
        return std::nullopt;
    }
    const bool isAlone = Trimmed(text).empty();
    cell.date = *date;
    cell.unit = !isAlone ? kDateAndClock : isTwoParts ? kTwoParts : kClock;
    cell.value = !isAlone && (date->first == 0 || cell.value >= kDay) ? kNoTime : cell.value;
    return cell;
}

}  // namespace recording
