#include "simulator/CsvTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace sim {
namespace {

using std::string_view;

constexpr std::size_t kLinesToLookAt = 1000;  // for the separator
constexpr string_view kBlanks = " \t\r\f\v";

string_view Trimmed(string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// Calls `take` with each line that is not blank and its number from 1.
template <typename Take>
void ForEachLine(string_view text, std::size_t most, Take take) {
    const char lineEnd = text.find('\n') != string_view::npos ? '\n' : '\r';
    for (std::size_t number = 1; !text.empty() && number <= most; ++number) {
        const std::size_t end = std::min(text.find(lineEnd), text.size());
        if (const string_view line = text.substr(0, end); !Trimmed(line).empty()) {
            take(number, line);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

// Where the first cell of a line ends, or npos if no separator follows. One in quotes belongs to the cell.
std::size_t CellEnd(string_view line, char separator) {
    const std::size_t first = line.find_first_not_of(' ');
    const bool quoted = first != string_view::npos && line[first] == '"';
    return line.find(separator, quoted ? std::min(line.find('"', first + 1), line.size()) : 0);
}

string_view Content(string_view cell) {
    cell = Trimmed(cell);
    return cell.size() > 1 && cell.starts_with('"') && cell.ends_with('"') ? Trimmed(cell.substr(1, cell.size() - 2))
                                                                           : cell;
}

// As the lines of a header do.
bool BeginsWithLetter(string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\"");
    const auto code = static_cast<unsigned char>(first == string_view::npos ? ' ' : line[first]);
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || code >= 0x80;
}

// True if at least half of the lines hold the separator, headers apart, and something stands behind it.
bool Parts(string_view text, char separator, bool headersToo) {
    std::size_t with = 0;
    std::size_t all = 0;
    bool somethingBehind = false;
    ForEachLine(text, kLinesToLookAt, [&](std::size_t, string_view line) {
        if (headersToo || !BeginsWithLetter(line)) {
            const std::size_t end = CellEnd(line, separator);
            ++all;
            with += end != string_view::npos ? 1 : 0;
            somethingBehind = somethingBehind || (end != string_view::npos && !Trimmed(line.substr(end + 1)).empty());
        }
    });
    return somethingBehind && 2 * with >= all;
}

// A comma is the last choice: it may be a decimal mark. Names of days or months may begin all lines.
char FindSeparator(string_view text) {
    bool onlyHeaders = true;
    ForEachLine(text, kLinesToLookAt,
                [&](std::size_t, string_view line) { onlyHeaders = onlyHeaders && BeginsWithLetter(line); });
    for (const char separator : {'\t', ';'}) {
        if (Parts(text, separator, onlyHeaders)) {
            return separator;
        }
    }
    return ',';
}

CsvCell ReadCell(string_view content) {
    if (content.empty()) {
        return {};
    }
    std::string text(content.substr(content.starts_with('+') ? 1 : 0));
    const std::size_t mark = text.find_first_of(".,");
    const char decimalMark = mark == std::string::npos ? '\0' : text[mark];
    if (decimalMark == ',' && text.find('.') == std::string::npos) {
        text[mark] = '.';  // with a point behind it, the comma parts thousands: no number
    }
    double value = 0.0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end.ec == std::errc::invalid_argument || end.ptr != text.data() + text.size()) {
        return {.kind = CsvCell::Kind::kWord};
    }
    const bool finite = end.ec == std::errc() && std::isfinite(value);
    return finite ? CsvCell{CsvCell::Kind::kNumber, decimalMark, value} : CsvCell{};
}

}  // namespace

CsvTable::CsvTable(string_view text) : separator_(FindSeparator(text)) {
    ForEachLine(text, string_view::npos, [&](std::size_t number, string_view line) {
        Row row{.line = number, .firstCell = cells_.size()};
        while (!line.empty()) {
            const std::size_t end = std::min(CellEnd(line, separator_), line.size());
            cells_.push_back(ReadCell(Content(line.substr(0, end))));
            line.remove_prefix(std::min(end + 1, line.size()));
        }
        row.cells = cells_.size() - row.firstCell;
        width_ = std::max(width_, row.cells);
        rows_.push_back(row);
    });
}

}  // namespace sim
