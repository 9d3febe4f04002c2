#include "recording/Guess.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "recording/Cells.h"
#include "recording/Recording.h"

namespace recording {
namespace {

using std::string_view;
using Lines = std::vector<string_view>;

// The first ones win where several fit: a comma may be a decimal mark, and blanks may stand around any other separator.
constexpr std::array<char, 5> kSeparators{'\t', ';', '|', ',', ' '};

bool BeginsWithLetter(string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\"|");
    const auto code = static_cast<unsigned char>(first == string_view::npos ? ' ' : line[first]);
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || code >= 0x80;
}

Lines LikelyRows(const std::vector<std::string>& lines) {
    Lines rows;
    Lines others;
    for (const std::string& line : lines) {
        if (std::ranges::any_of(line, IsDigit)) {
            (BeginsWithLetter(line) ? others : rows).push_back(line);
        }
    }
    return rows.empty() ? others : rows;
}

bool SeparatesMost(const Lines& rows, char separator) {
    const auto with =
        std::ranges::count_if(rows, [separator](string_view row) { return SplitCells(row, separator).size() > 1; });
    return 2 * static_cast<std::size_t>(with) >= rows.size();
}

// How well the rows read as numbers: the mean share of cells that are no words.
double Score(const Lines& rows, const Form& form) {
    Row row;
    double sum = 0.0;
    for (const string_view line : rows) {
        ReadRow(line, form, &row);
        const auto values = static_cast<double>(std::ranges::count_if(row.codes, HasValue));
        const auto words = static_cast<double>(
            std::ranges::count_if(row.codes, [](char code) { return KindOf(code) == CellKind::Word; }));
        sum += values > 0.0 ? values / (values + words) : 0.0;
    }
    return sum / static_cast<double>(rows.size());
}

char FindSeparator(const Lines& rows, const NumberStyle& style) {
    constexpr double kClearlyBetter = 1.001;
    double best = 0.0;
    char separator = '\0';
    for (const char candidate : kSeparators) {
        if ((candidate == ',' && style.byUser && style.decimalMark == ',') || !SeparatesMost(rows, candidate)) {
            continue;
        }
        if (const double score = Score(rows, {candidate, style}); score > best * kClearlyBetter) {
            best = score;
            separator = candidate;
        }
    }
    return best > 0.0 && Score(rows, {'\0', style}) > best * kClearlyBetter ? '\0' : separator;
}

bool IsWhole(string_view cell) { return !cell.empty() && std::ranges::all_of(cell, IsDigit); }

// The digits in front of an exponent.
string_view WithoutExponent(string_view cell) {
    const std::size_t exponent = std::min(cell.find_first_of("eE"), cell.size());
    string_view digits = cell.substr(std::min(exponent + 1, cell.size()));
    digits.remove_prefix(digits.starts_with('-') || digits.starts_with('+') ? 1 : 0);
    return exponent == cell.size() || IsWhole(digits) ? cell.substr(0, exponent) : cell;
}

// What the whole numbers on either side of commas tell.
struct CommaSigns {
    bool mayBeDecimal = true;  // all rows are one number each, or pairs of whole numbers
    bool isDecimal = false;    // no whole number is written "05", "000E+00" or "-0"
    bool onePair = true;
};

CommaSigns ReadCommaSigns(const Lines& rows) {
    CommaSigns signs;
    for (const string_view row : rows) {
        const std::vector<string_view> cells = SplitCells(row, ',');
        signs.onePair = signs.onePair && cells.size() <= 2;
        const bool hasGaps = row.find(", ") != string_view::npos || row.find(" ,") != string_view::npos;
        signs.mayBeDecimal = signs.mayBeDecimal && !hasGaps && (cells.size() == 1 || cells.size() % 2 == 0);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const bool isFraction = i % 2 == 1;
            const string_view number = isFraction ? WithoutExponent(cells[i]) : cells[i];
            const string_view digits = number.substr(!isFraction && number.starts_with('-') ? 1 : 0);
            signs.mayBeDecimal = signs.mayBeDecimal && IsWhole(digits);
            signs.isDecimal = signs.isDecimal || (isFraction && digits.size() > 1 && digits.starts_with('0')) ||
                              (!isFraction && cells[i] == "-0");
        }
    }
    return signs;
}

struct MarkCounts {
    std::size_t points = 0;  // that cannot separate thousands
    std::size_t commas = 0;
    string_view unclearComma;
    string_view unclear;  // in a column in which others have no mark, as 998 beside 1,000
};

// The numbers of a column that may be read in two ways.
struct ColumnMarks {
    string_view unclear;
    bool hasPlain = false;  // whole ones of several digits, as they stand below the thousands
};

MarkCounts CountMarks(const Lines& rows, const Form& form) {
    MarkCounts marks;
    std::vector<ColumnMarks> columns;
    for (const string_view row : rows) {
        const std::vector<string_view> cells = SplitCells(row, form.separator);
        columns.resize(std::max(columns.size(), cells.size()));
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const Cell cell = ReadCell(cells[i], form.numbers);
            marks.points += cell.mark == '.' && !cell.isUnclear ? 1 : 0;  // also as marks of thousands show it
            marks.commas += cell.mark == ',' && !cell.isUnclear ? 1 : 0;
            columns[i].unclear = cell.isUnclear ? Content(cells[i]) : columns[i].unclear;
            columns[i].hasPlain = columns[i].hasPlain || (cell.kind == CellKind::Number && cell.mark == 0 &&
                                                          std::fabs(cell.value) >= 10.0 && !cell.isUnclear);
        }
    }
    for (const ColumnMarks& column : columns) {
        marks.unclearComma = column.unclear.find(',') != string_view::npos ? column.unclear : marks.unclearComma;
        marks.unclear = column.hasPlain && !column.unclear.empty() ? column.unclear : marks.unclear;
    }
    return marks;
}

void FindDecimalMark(const Lines& rows, Guess* guess) {
    const MarkCounts marks = CountMarks(rows, guess->form);
    const bool fromCountryOfCommas = marks.points == 0 && guess->form.separator == ';' && !marks.unclearComma.empty();
    guess->form.numbers.decimalMark = marks.commas > marks.points || fromCountryOfCommas ? ',' : '.';
    if (marks.commas + marks.points == 0) {
        guess->unclear = !marks.unclear.empty() ? marks.unclear
                         : fromCountryOfCommas  ? string_view()
                                                : marks.unclearComma;
    }
}

void DoubtComma(const Lines& rows, Guess* guess) {
    const CommaSigns signs = ReadCommaSigns(rows);
    guess->commaMayBeDecimal = signs.mayBeDecimal && signs.onePair;
    if (signs.mayBeDecimal && signs.isDecimal) {
        guess->commasAreBoth = !signs.onePair;
        if (signs.onePair) {
            guess->form = {.separator = '\0', .numbers = {.decimalMark = ','}};
            guess->commaByGuess = false;
        }
    }
}

}  // namespace

Guess GuessForm(const std::vector<std::string>& lines, const Choice& choice) {
    Guess guess;
    const Lines rows = LikelyRows(lines);
    guess.form.numbers = {.decimalMark = choice.decimalMark.value_or('.'), .byUser = choice.decimalMark.has_value()};
    guess.form.separator = choice.separator ? *choice.separator : FindSeparator(rows, guess.form.numbers);
    if (!choice.decimalMark) {
        FindDecimalMark(rows, &guess);
    }
    guess.commaByGuess = guess.form.separator == ',' && !choice.separator && !choice.decimalMark && !choice.byNumber;
    if (guess.commaByGuess) {
        DoubtComma(rows, &guess);
    }
    return guess;
}

}  // namespace recording
