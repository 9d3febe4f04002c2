#include "simulator/CsvTrace.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "simulator/CsvTable.h"

namespace sim {
namespace {

using std::string_view;
using Columns = std::vector<std::size_t>;  // from 0
using Kind = CsvCell::Kind;

constexpr std::size_t kShortestRecording = 2;
constexpr double kEvenWithin = 0.01;  // of the whole rise; a time of few digits is no better
constexpr string_view kByteOrderMark = "\xEF\xBB\xBF";

// The rows of the recording: a header stands above, closing remarks below.
struct Block {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t brokenAt = 0;  // row of a remark behind which numbers go on; 0 if there is none
};

// Of the first cell that is filled, among those columns.
Kind FirstKind(const CsvTable& table, std::size_t row, std::span<const std::size_t> columns) {
    for (const std::size_t column : columns) {
        if (const CsvCell cell = table.At(row, column); cell.kind != Kind::kMissing) {
            return cell.kind;
        }
    }
    return Kind::kMissing;
}

// The columns with at least half as many numbers as the fullest one, in the rows that `counts` takes. A broken
// recording is among them, so that its fault is told.
template <typename Counts>
Columns FullColumns(const CsvTable& table, const Block& block, Counts counts) {
    std::vector<std::size_t> numbers(table.Width(), 0);
    for (std::size_t row = block.begin; row < block.end; ++row) {
        for (std::size_t i = 0, cells = counts(row) ? table.Cells(row) : 0; i < cells; ++i) {
            numbers[i] += table.At(row, i).kind == Kind::kNumber ? 1 : 0;
        }
    }
    const std::size_t most = numbers.empty() ? 0 : std::ranges::max(numbers);
    Columns full;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] > 0 && 2 * numbers[i] >= most) {
            full.push_back(i);
        }
    }
    return full;
}

// The numbers of a header stand in rows that begin with a word. So may all rows, with the names of days or months.
Columns LikelyColumns(const CsvTable& table) {
    const Block whole{.end = table.Rows()};
    Columns all(table.Width());
    std::iota(all.begin(), all.end(), 0U);
    const Columns likely =
        FullColumns(table, whole, [&](std::size_t row) { return FirstKind(table, row, all) != Kind::kWord; });
    return likely.empty() ? FullColumns(table, whole, [](std::size_t) { return true; }) : likely;
}

// Rows that begin with a word in the columns of the samples end the header or the recording. A single row of numbers
// above them is no recording yet but belongs to the header. Words in other columns stand beside the samples.
Block FindBlock(const CsvTable& table, const Columns& columns) {
    Block block;
    std::size_t samples = 0;
    std::size_t remark = 0;
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const Kind kind = FirstKind(table, row, columns);
        if (kind == Kind::kWord && samples < kShortestRecording) {
            samples = 0;
        } else if (kind == Kind::kWord && remark == 0) {
            remark = row;
        } else if (kind == Kind::kNumber && remark != 0) {
            block.brokenAt = remark;
            return block;
        } else if (kind == Kind::kNumber) {
            block.begin = samples == 0 ? row : block.begin;
            block.end = row + 1;
            ++samples;
        }
    }
    return block;
}

std::size_t Count(const CsvTable& table, std::size_t row, Kind kind) {
    std::size_t count = 0;
    for (std::size_t column = 0; column < table.Cells(row); ++column) {
        count += table.At(row, column).kind == kind ? 1 : 0;
    }
    return count;
}

bool HasDecimalMarks(const CsvTable& table, const Block& block) {
    for (std::size_t row = block.begin; row < block.end; ++row) {
        for (std::size_t column = 0; column < table.Cells(row); ++column) {
            if (table.At(row, column).decimalMark != 0) {
                return true;
            }
        }
    }
    return false;
}

// True if commas seem to be decimal marks as well: the title line just above names fewer columns than there are.
bool IsAmbiguous(const CsvTable& table, const Block& block) {
    if (table.Separator() != ',' || block.begin == 0) {
        return false;
    }
    const std::size_t titleRow = block.begin - 1;
    const std::size_t titles = Count(table, titleRow, Kind::kWord);
    const std::size_t cells = Count(table, block.begin, Kind::kNumber) + Count(table, block.begin, Kind::kWord);
    return titles > 0 && titles < cells && Count(table, titleRow, Kind::kNumber) == 0 && !HasDecimalMarks(table, block);
}

std::vector<double> Numbers(const CsvTable& table, const Block& block, std::size_t column) {
    std::vector<double> numbers;
    for (std::size_t row = block.begin; row < block.end; ++row) {
        if (const CsvCell cell = table.At(row, column); cell.kind == Kind::kNumber) {
            numbers.push_back(cell.value);
        }
    }
    return numbers;
}

// A time of few digits stands still now and then.
bool Rises(const std::vector<double>& numbers) {
    return std::ranges::is_sorted(numbers) && numbers.back() > numbers.front();
}

bool RisesEvenly(const std::vector<double>& numbers) {
    if (numbers.size() <= kShortestRecording || !Rises(numbers)) {
        return false;
    }
    const double rise = numbers.back() - numbers.front();
    const double step = rise / static_cast<double>(numbers.size() - 1);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (std::abs(numbers[i] - numbers.front() - static_cast<double>(i) * step) > kEvenWithin * rise) {
            return false;
        }
    }
    return true;
}

// Leaves out a first column that rises, the time or an index, and the time behind an index. A signal behind the time
// may rise too, but hardly as evenly.
void LeaveOutTime(const CsvTable& table, const Block& block, Columns& columns) {
    if (columns.size() > 1 && Rises(Numbers(table, block, columns.front()))) {
        columns.erase(columns.begin());
        while (columns.size() > 1 && RisesEvenly(Numbers(table, block, columns.front()))) {
            columns.erase(columns.begin());
        }
    }
}

bool HasCellsBehind(const CsvTable& table, const Block& block, std::size_t column) {
    for (std::size_t row = block.begin; row < block.end; ++row) {
        for (std::size_t i = column + 1; i < table.Cells(row); ++i) {
            if (table.At(row, i).kind != Kind::kMissing) {
                return true;
            }
        }
    }
    return false;
}

// What is wrong with the column, as the end of a sentence; empty if nothing is.
std::string Complaint(const CsvTable& table, const Block& block, std::size_t column) {
    if (column >= table.Width()) {
        return "is not there";
    }
    std::size_t numbers = 0;
    std::size_t gap = 0;       // first line without a number
    std::size_t brokenAt = 0;  // the same, once a further number has shown that the column goes on
    bool pointSeen = false;
    bool commaSeen = false;
    for (std::size_t row = block.begin; row < block.end; ++row) {
        const CsvCell cell = table.At(row, column);
        if (cell.kind == Kind::kNumber) {
            brokenAt = brokenAt != 0 ? brokenAt : gap;
            pointSeen = pointSeen || cell.decimalMark == '.';
            commaSeen = commaSeen || cell.decimalMark == ',';
            ++numbers;
        } else if (gap == 0) {
            gap = table.Line(row);
        }
    }
    if (numbers < kShortestRecording) {
        return "holds " + std::string(numbers == 0 ? "no numbers" : "one number only");
    }
    if (brokenAt != 0) {
        return "has no number in line " + std::to_string(brokenAt);
    }
    return pointSeen && commaSeen ? "has numbers with a decimal point and numbers with a comma" : "";
}

std::string Named(std::size_t column) { return "column " + std::to_string(column + 1) + " "; }

// The columns of the channels if the user has chosen none; empty, with a sentence in `error`, if there are none.
Columns ChooseColumns(const CsvTable& table, const Block& block, std::string* error) {
    Columns chosen = FullColumns(table, block, [](std::size_t) { return true; });
    LeaveOutTime(table, block, chosen);
    if (chosen.empty()) {
        *error = "holds no numbers";
    } else if (chosen.size() == 1 && HasCellsBehind(table, block, chosen.front()) &&
               Rises(Numbers(table, block, chosen.front()))) {
        *error = Named(chosen.front()) +
                 "only rises, as a time does, and those behind it are not numbers throughout; if it is the recording, "
                 "choose it with --columns";
        chosen.clear();
    }
    return chosen;
}

// False, with a sentence in `error`, if the file as a whole is not to be trusted.
bool FindRecording(const CsvTable& table, Block* block, std::string* error) {
    const Columns likely = LikelyColumns(table);
    *block = FindBlock(table, likely);
    if (block->brokenAt != 0) {
        *error = Named(likely.front()) + "has no number in line " + std::to_string(table.Line(block->brokenAt));
    } else if (IsAmbiguous(table, *block)) {
        *error = "has more cells in line " + std::to_string(table.Line(block->begin)) +
                 " than titles above; commas seem to be decimal marks too: save it with semicolons between the cells, "
                 "or with decimal points";
    }
    return error->empty();
}

}  // namespace

bool ReadCsv(string_view text, std::span<const int> columns, std::array<CsvColumn, 2>* channels, std::string* error) {
    error->clear();
    if (text.find('\0') != string_view::npos) {
        *error = "is no plain text; save it as CSV in UTF-8 or ASCII";
        return false;
    }
    text.remove_prefix(text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
    const CsvTable table(text);
    Block block;
    if (!FindRecording(table, &block, error)) {
        return false;
    }
    Columns chosen;
    for (const int number : columns) {
        chosen.push_back(static_cast<std::size_t>(number) - 1);
    }
    if (chosen.empty() && (chosen = ChooseColumns(table, block, error)).empty()) {
        return false;
    }
    chosen = {chosen.front(), chosen[std::min(chosen.size(), channels->size()) - 1]};
    std::size_t shortest = table.Rows();
    for (std::size_t channel = 0; channel < channels->size(); ++channel) {
        if (const std::string complaint = Complaint(table, block, chosen[channel]); !complaint.empty()) {
            *error = Named(chosen[channel]) + complaint;
            return false;
        }
        CsvColumn& column = (*channels)[channel];
        column = {.number = static_cast<int>(chosen[channel]) + 1, .values = Numbers(table, block, chosen[channel])};
        shortest = std::min(shortest, column.values.size());
    }
    for (CsvColumn& column : *channels) {
        column.values.resize(shortest);
        column.firstLine = table.Line(block.begin);
        column.lastLine = table.Line(block.begin + shortest - 1);
    }
    return true;
}

}  // namespace sim
