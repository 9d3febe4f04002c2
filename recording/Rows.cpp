#include "recording/Rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "recording/Units.h"

namespace recording {
namespace {

using std::string_view;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\f' || c == '\v'; }

// Walks through the cells of one line.
class Cursor {
  public:
    Cursor(string_view line, char separator)
        : at_(line.data()), end_(line.data() + line.size()), separator_(separator) {
        SkipBlanks();
        if (separator_ == ' ' || separator_ == '|') {
            while (at_ != end_ && IsBlank(end_[-1])) {
                --end_;
            }
        }
        if (separator_ == '|' && at_ != end_) {
            at_ += *at_ == '|' ? 1 : 0;
            end_ -= at_ != end_ && end_[-1] == '|' ? 1 : 0;
        }
        more_ = at_ != end_;
    }

    bool HasMore() const { return more_; }

    // Takes a cell that is a plain number and no more; false, and nothing is taken, if it is anything else.
    bool TakeNumber(const NumberStyle& style, double* value, char* mark) {
        SkipBlanks();
        const char* const begin = at_ != end_ && *at_ == '+' ? at_ + 1 : at_;
        const char* const digit = begin == at_ && at_ != end_ && *at_ == '-' ? at_ + 1 : begin;
        if (digit == end_ || *digit > '9' || *digit == '-') {
            return false;  // a word, or one that from_chars would take for a number, as "-inf"
        }
        const char* const after =
            style.decimalMark == ',' ? CommaNumberEnd(begin, value, mark) : PointNumberEnd(begin, value, mark);
        const char* next = after;
        if (separator_ != ' ') {
            next = std::find_if_not(next, end_, [this](char c) { return IsBlank(c) && c != separator_; });
        }
        if (after == begin || (next != end_ && !IsSeparator(*next)) || IsHoleValue(*value)) {
            return false;
        }
        Pass(next);
        return true;
    }

    string_view TakeText() {
        SkipBlanks();
        const char* from = at_;
        if (at_ != end_ && *at_ == '"') {
            from = std::find(at_ + 1, end_, '"');
        }
        const char* const next = std::find_if(from, end_, [this](char c) { return IsSeparator(c); });
        const string_view cell(at_, static_cast<std::size_t>(next - at_));
        Pass(next);
        return cell;
    }

  private:
    bool IsSeparator(char c) const { return separator_ == ' ' ? IsBlank(c) : c == separator_ && separator_ != '\0'; }

    // Where the number ends that begins here; nowhere else than there if there is none.
    const char* PointNumberEnd(const char* begin, double* value, char* mark) const {
        const auto [after, error] = std::from_chars(begin, end_, *value);
        const bool hasPoint = std::memchr(begin, '.', static_cast<std::size_t>(after - begin)) != nullptr;
        *mark = hasPoint ? '.' : '\0';
        return error == std::errc() ? after : begin;
    }

    // The same with a decimal comma; a point may separate thousands, which ReadCell reads.
    const char* CommaNumberEnd(const char* begin, double* value, char* mark) const {
        std::array<char, 32> plain{};
        std::size_t size = 0;
        *mark = '\0';
        for (const char* at = begin; at != end_ && !IsSeparator(*at) && !IsBlank(*at); ++at) {
            if (*at == '.' || size == plain.size()) {
                return begin;
            }
            *mark = *at == ',' ? ',' : *mark;
            plain[size++] = *at == ',' ? '.' : *at;
        }
        const auto [after, error] = std::from_chars(plain.data(), plain.data() + size, *value);
        const bool isWhole = error == std::errc() && after == plain.data() + size && plain[size - 1] != '.';
        return isWhole ? begin + size : begin;
    }

    void SkipBlanks() {
        while (at_ != end_ && IsBlank(*at_) && *at_ != (separator_ == ' ' ? '\0' : separator_)) {
            ++at_;
        }
    }

    // Goes on behind the separator at `next`; behind one at the end of the line stands an empty cell.
    void Pass(const char* next) {
        more_ = next != end_;
        at_ = more_ ? next + 1 : end_;
    }

    const char* at_;
    const char* end_;
    char separator_;
    bool more_ = false;
};

// The unit of the number in the cell to the left: meters that change their range write it so. Another
// letter may mean anything.
void GiveUnit(string_view text, Row* row) {
    const std::optional<Unit> unit = ReadUnit(text);
    if (unit && (text.size() > 1 || text == "V" || text == "A" || text == "s")) {
        row->codes.back() = CellCode(CellKind::Number, unit->base);
        row->values.back() *= unit->scale;
    }
}

// The value of a stamp, by the place of its date among the dates.
double PlaceDate(const Cell& cell, Row* row) {
    if (row->dates.empty() || row->dates.back() != cell.date) {
        row->dates.push_back(cell.date);
    }
    return cell.value + kDay * static_cast<double>(row->dates.size() - 1);
}

}  // namespace

std::vector<string_view> SplitCells(string_view line, char separator) {
    std::vector<string_view> cells;
    for (Cursor cursor(line, separator); cursor.HasMore();) {
        cells.push_back(Trimmed(cursor.TakeText()));
    }
    return cells;
}

void ReadRow(string_view line, const Form& form, Row* row) {
    row->codes.clear();
    row->marks.clear();
    row->values.clear();
    constexpr char kPlainNumber = static_cast<char>(CellKind::Number);
    for (Cursor cursor(line, form.separator); cursor.HasMore();) {
        double value = 0.0;
        char mark = '\0';
        char code = kPlainNumber;
        if (!cursor.TakeNumber(form.numbers, &value, &mark)) {
            const string_view text = cursor.TakeText();
            const Cell cell = ReadCell(text, form.numbers);
            code = CellCode(cell.kind, cell.unit);
            value = cell.date.first > 0 ? PlaceDate(cell, row) : cell.value;
            mark = cell.mark;
            if (cell.kind == CellKind::Word && !row->codes.empty() && row->codes.back() == kPlainNumber) {
                GiveUnit(Content(text), row);
            }
        }
        row->codes.push_back(code);
        row->marks.push_back(mark);
        row->values.push_back(value);
    }
}

}  // namespace recording
