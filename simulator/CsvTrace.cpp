#include "simulator/CsvTrace.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <optional>

namespace sim {
namespace {

using std::string_view;
using Cells = std::vector<string_view>;

constexpr std::size_t kLongestHeaderLines = 100;
constexpr std::size_t kLinesToLookAt = 1000;  // for the separator
constexpr std::size_t kShortestRecording = 2;
constexpr string_view kBlanks = " \r\f\v";
constexpr string_view kByteOrderMark = "\xEF\xBB\xBF";

string_view Trimmed(string_view text, string_view blanks = kBlanks) {
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// Calls `take` with each line that is not blank and its number from 1.
template <typename Take>
void ForEachLine(string_view text, std::size_t most, Take take) {
    const char lineEnd = text.find('\n') != string_view::npos ? '\n' : '\r';
    for (std::size_t number = 1; !text.empty() && number <= most; ++number) {
        const std::size_t end = std::min(text.find(lineEnd), text.size());
        if (const string_view line = text.substr(0, end); !Trimmed(line, " \t\r\f\v").empty()) {
            take(number, line);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

// Where the first cell of a line ends, or npos if no separator follows. One in quotes belongs to the cell.
std::size_t CellEnd(string_view line, char separator) {
    const std::size_t first = line.find_first_not_of(kBlanks);
    const bool quoted = first != string_view::npos && line[first] == '"';
    return line.find(separator, quoted ? std::min(line.find('"', first + 1), line.size()) : 0);
}

string_view Content(string_view cell) {
    cell = Trimmed(cell);
    return cell.size() > 1 && cell.starts_with('"') && cell.ends_with('"') ? Trimmed(cell.substr(1, cell.size() - 2))
                                                                           : cell;
}

void Split(string_view line, char separator, Cells& cells) {
    cells.clear();
    while (!line.empty()) {
        const std::size_t end = std::min(CellEnd(line, separator), line.size());
        cells.push_back(Content(line.substr(0, end)));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
}

std::optional<double> Finite(string_view text) {
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    double value = 0.0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool IsLetter(char c) {
    const auto code = static_cast<unsigned char>(c);
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || code >= 0x80;
}

// As the lines of a header do. "NaN" and "Inf" are no words but missing values.
bool BeginsWithWord(string_view line) {
    const string_view cell = Trimmed(line, " \t\"");
    const char* const cellEnd = cell.data() + cell.size();
    if (cell.empty() || !IsLetter(cell.front())) {
        return false;
    }
    double value = 0.0;
    const auto end = std::from_chars(cell.data(), cellEnd, value);
    return end.ec != std::errc() || (end.ptr != cellEnd && IsLetter(*end.ptr));
}

// The separator that at least half of the lines hold, headers apart. A comma is the last choice: it may be a decimal
// mark.
char FindSeparator(string_view text) {
    for (const char separator : {'\t', ';'}) {
        std::size_t with = 0;
        std::size_t all = 0;
        ForEachLine(text, kLinesToLookAt, [&](std::size_t, string_view line) {
            if (!BeginsWithWord(line)) {
                ++all;
                with += CellEnd(line, separator) != string_view::npos ? 1 : 0;
            }
        });
        if (with > 0 && 2 * with >= all) {
            return separator;
        }
    }
    return ',';
}

class ColumnReader {
  public:
    void Take(std::size_t line, string_view cell, bool inHeader) {
        if (const auto number = Number(cell)) {
            brokenAt_ = brokenAt_ != 0 ? brokenAt_ : gapAt_;
            column_.firstLine = column_.values.empty() ? line : column_.firstLine;
            column_.lastLine = line;
            column_.values.push_back(*number);
        } else if (inHeader) {
            *this = {};
        } else if (!column_.values.empty() && gapAt_ == 0) {
            gapAt_ = line;
        }
    }

    std::size_t Count() const { return column_.values.size(); }

    // True if each value is above the one before it.
    bool OnlyRises() const {
        return std::ranges::adjacent_find(column_.values, std::greater_equal()) == column_.values.end();
    }

    // What is wrong with the column, as the end of a sentence; empty if nothing is.
    std::string Complaint() const {
        if (Count() < kShortestRecording) {
            return "holds " + std::string(Count() == 0 ? "no numbers" : "one number only");
        }
        if (brokenAt_ != 0) {
            return "has no number in line " + std::to_string(brokenAt_);
        }
        return pointSeen_ && commaSeen_ ? "has numbers with a decimal point and numbers with a comma" : "";
    }

    CsvColumn Column(int number) const {
        CsvColumn column = column_;
        column.number = number;
        return column;
    }

  private:
    std::optional<double> Number(string_view cell) {
        const std::size_t comma = cell.find(',');
        if (comma == string_view::npos) {
            const auto number = Finite(cell);
            pointSeen_ = pointSeen_ || (number && cell.find('.') != string_view::npos);
            return number;
        }
        if (cell.find('.') != string_view::npos) {
            return std::nullopt;  // one of them parts thousands, but which?
        }
        std::string withPoint(cell);
        withPoint[comma] = '.';
        const auto number = Finite(withPoint);
        commaSeen_ = commaSeen_ || number.has_value();
        return number;
    }

    CsvColumn column_;
    std::size_t gapAt_ = 0;     // first line without a number behind the first one with a number
    std::size_t brokenAt_ = 0;  // the same, once a further number has shown that the column goes on
    bool pointSeen_ = false;
    bool commaSeen_ = false;
};

std::vector<ColumnReader> ReadColumns(string_view text) {
    const char separator = FindSeparator(text);
    std::vector<ColumnReader> readers;
    Cells cells;
    ForEachLine(text, string_view::npos, [&](std::size_t number, string_view line) {
        Split(line, separator, cells);
        readers.resize(std::max(readers.size(), cells.size()));
        const bool inHeader = number <= kLongestHeaderLines && BeginsWithWord(line);
        for (std::size_t i = 0; i < readers.size(); ++i) {
            readers[i].Take(number, i < cells.size() ? cells[i] : string_view(), inHeader);
        }
    });
    return readers;
}

// Columns of the header's numbers are short. A broken recording is kept, so that its fault is told.
std::vector<int> ChooseColumns(const std::vector<ColumnReader>& readers) {
    std::size_t longest = 0;
    for (const ColumnReader& reader : readers) {
        longest = std::max(longest, reader.Count());
    }
    std::vector<int> chosen;
    for (std::size_t i = 0; i < readers.size(); ++i) {
        if (longest > 0 && 2 * readers[i].Count() >= longest) {
            chosen.push_back(static_cast<int>(i) + 1);
        }
    }
    if (chosen.size() > 1 && readers[static_cast<std::size_t>(chosen.front()) - 1].OnlyRises()) {
        chosen.erase(chosen.begin());
    }
    return chosen;
}

}  // namespace

bool ReadCsv(string_view text, std::span<const int> columns, std::array<CsvColumn, 2>* channels, std::string* error) {
    if (text.find('\0') != string_view::npos) {
        *error = "is no plain text; save it as CSV in UTF-8 or ASCII";
        return false;
    }
    text.remove_prefix(text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
    std::vector<ColumnReader> readers = ReadColumns(text);
    std::vector<int> chosen(columns.begin(), columns.end());
    if (chosen.empty()) {
        chosen = ChooseColumns(readers);
    }
    if (chosen.empty()) {
        *error = "holds no numbers";
        return false;
    }
    for (std::size_t channel = 0; channel < channels->size(); ++channel) {
        const int number = chosen[std::min(channel, chosen.size() - 1)];
        const auto place = static_cast<std::size_t>(number) - 1;
        const std::string complaint = place < readers.size() ? readers[place].Complaint() : "is not there";
        if (!complaint.empty()) {
            *error = "column " + std::to_string(number) + " " + complaint;
            return false;
        }
        (*channels)[channel] = readers[place].Column(number);
    }
    return true;
}

}  // namespace sim
