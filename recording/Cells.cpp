#include "recording/Cells.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "recording/Units.h"

namespace recording {
namespace {

using std::string_view;

constexpr string_view kBlanks = " \t\f\v";
constexpr std::size_t kGroup = 3;  // digits between two marks of thousands

bool IsGroupMark(char c) { return c == '\'' || c == ' '; }

// "NaN", "Null", "--" and their like, with or without a sign.
bool IsHoleWord(string_view text) {
    constexpr std::size_t kLongest = 9;
    if (text.find_first_not_of('-') == string_view::npos || text.find_first_not_of('*') == string_view::npos ||
        text.find_first_not_of('?') == string_view::npos) {
        return true;
    }
    text.remove_prefix(text.front() == '-' || text.front() == '+' ? 1 : 0);
    if (text.size() > kLongest) {
        return false;
    }
    constexpr auto kWords = std::to_array<string_view>(
        {"nan",     "null",      "n/a",      "#n/a",     "inf",      "infinity", "1.#inf",
         "1.#qnan", "1.#ind",    "nan(ind)", "overflow", "overload", "over",     "ovl",
         "ol",      "underflow", "clipped",  "invalid",  "error",    "void",     "\342\210\236"});
    return std::ranges::any_of(kWords, [text](string_view word) {
        return std::ranges::equal(word, text, {}, {}, [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    });
}

// The digits of a number with their marks, without sign and exponent.
struct Body {
    string_view text;
    std::size_t decimal = string_view::npos;  // place of the decimal mark
    bool isUnclear = false;
};

std::size_t BodyLength(string_view text) {
    std::size_t at = 0;
    while (at < text.size() && (IsDigit(text[at]) || text[at] == '.' || text[at] == ',' ||
                                (at > 0 && at + 1 < text.size() && IsGroupMark(text[at]) && IsDigit(text[at - 1]) &&
                                 IsDigit(text[at + 1])))) {
        ++at;
    }
    return at;
}

// One to three digits, then groups of three behind one kind of mark.
bool IsGrouped(string_view whole) {
    const std::size_t first = std::min(whole.find_first_not_of("0123456789"), whole.size());
    if (first == whole.size()) {
        return true;
    }
    if (first == 0 || first > kGroup || (whole.size() - first) % (kGroup + 1) != 0) {
        return false;
    }
    for (std::size_t i = first; i < whole.size(); ++i) {
        if ((i - first) % (kGroup + 1) == 0 ? whole[i] != whole[first] : !IsDigit(whole[i])) {
            return false;
        }
    }
    return true;
}

// Where one mark stands once, it may be either: thousands only with one to three digits in front, no leading zero, and
// three behind.
bool MaySeparateThousands(string_view body, std::size_t mark) {
    return mark >= 1 && mark <= kGroup && body.front() != '0' && body.size() == mark + 1 + kGroup &&
           std::ranges::all_of(body.substr(0, mark), IsDigit);
}

bool FindDecimal(Body& body, bool hasExponent, const NumberStyle& style) {
    const string_view text = body.text;
    const auto points = std::ranges::count(text, '.');
    const auto commas = std::ranges::count(text, ',');
    const std::size_t last = text.find_last_of(".,");
    if (points > 0 && commas > 0) {
        body.decimal = last;
        return (text[last] == '.' ? points : commas) == 1;
    }
    if (points + commas == 1) {
        body.isUnclear = !hasExponent && MaySeparateThousands(text, last);
        body.decimal = body.isUnclear && text[last] != style.decimalMark ? string_view::npos : last;
    }
    return true;
}

// The digits as from_chars wants them; false if the marks do not stand as in a number.
bool PlainDigits(const Body& body, const NumberStyle& style, std::string* plain) {
    const bool hasDecimal = body.decimal != string_view::npos;
    const string_view whole = body.text.substr(0, body.decimal);
    const string_view fraction = hasDecimal ? body.text.substr(body.decimal + 1) : string_view();
    const char mark = hasDecimal ? body.text[body.decimal] : '\0';
    if (!IsGrouped(whole) || !std::ranges::all_of(fraction, IsDigit) || whole.size() + fraction.size() == 0 ||
        (mark == ',' && fraction.empty()) || (hasDecimal && style.byUser && mark != style.decimalMark)) {
        return false;
    }
    std::ranges::copy_if(whole, std::back_inserter(*plain), IsDigit);
    if (hasDecimal) {
        plain->append(".").append(fraction);
    }
    return true;
}

// The decimal mark, or the one that the marks between thousands leave.
char MarkOf(const Body& body) {
    if (body.decimal != string_view::npos) {
        return body.text[body.decimal];
    }
    const std::size_t group = body.text.find_first_of(".,");
    return group == string_view::npos ? '\0' : body.text[group] == ',' ? '.' : ',';
}

// The length of "E+003"; 0 if there is none.
std::size_t ExponentLength(string_view text) {
    if (text.empty() || (text.front() != 'e' && text.front() != 'E')) {
        return 0;
    }
    const std::size_t digits = text.size() > 1 && (text[1] == '-' || text[1] == '+') ? 2 : 1;
    const std::size_t end = std::min(text.find_first_not_of("0123456789", digits), text.size());
    return end > digits ? end : 0;
}

Cell NumberOf(const std::string& plain, const Cell& cell, double scale) {
    double value = 0.0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    // Out of range are the smallest numbers as well as the greatest.
    const bool isTiny = result.ec == std::errc::result_out_of_range &&
                        (plain.find("e-") != std::string::npos || plain.find_first_of("123456789.") == plain.find('.'));
    if ((result.ec != std::errc() && !isTiny) || IsHoleValue(value) || IsHoleValue(value * scale) ||
        !std::isfinite(value * scale)) {
        return {};
    }
    Cell number = cell;
    number.kind = CellKind::Number;
    number.value = isTiny ? 0.0 : value * scale;
    return number;
}

std::optional<Cell> ReadNumber(string_view text, const NumberStyle& style) {
    if (text.find_first_of("0123456789") == string_view::npos) {
        return std::nullopt;
    }
    std::string plain(text.starts_with('-') ? "-" : "");
    text.remove_prefix(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
    Body body{.text = text.substr(0, BodyLength(text))};
    text.remove_prefix(body.text.size());
    const std::size_t exponent = ExponentLength(text);
    if (body.text.empty() || !FindDecimal(body, exponent > 0, style) || !PlainDigits(body, style, &plain)) {
        return std::nullopt;
    }
    if (exponent > 0) {
        plain.append("e").append(text.substr(text[1] == '+' ? 2 : 1, exponent - (text[1] == '+' ? 2 : 1)));
    }
    const string_view unitText = Trimmed(text.substr(exponent));
    const std::optional<Unit> unit = unitText.empty() ? Unit{} : ReadCellUnit(unitText);
    if (!unit) {
        return std::nullopt;
    }
    return NumberOf(plain, {.unit = unit->base, .mark = MarkOf(body), .isUnclear = body.isUnclear}, unit->scale);
}

}  // namespace

string_view Trimmed(string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

string_view Content(string_view cell) {
    cell = Trimmed(cell);
    return cell.size() > 1 && cell.starts_with('"') && cell.ends_with('"') ? Trimmed(cell.substr(1, cell.size() - 2))
                                                                           : cell;
}

bool IsHoleValue(double value) {
    constexpr double kLowest = 9.89e37;
    constexpr double kHighest = 9.92e37;
    return std::fabs(value) > kLowest && std::fabs(value) < kHighest;
}

Cell ReadCell(string_view text, const NumberStyle& style) {
    text = Content(text);
    if (text.empty() || IsHoleWord(text)) {
        return {};
    }
    if (const std::optional<Cell> number = ReadNumber(text, style)) {
        return *number;
    }
    return ReadStamp(text).value_or(Cell{.kind = CellKind::Word});
}

}  // namespace recording
