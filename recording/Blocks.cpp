#include "recording/Blocks.h"

#include <algorithm>
#include <numeric>

#include "recording/Keys.h"
#include "recording/Titles.h"

namespace recording {
namespace {

constexpr std::size_t kFewestRows = 2;
constexpr std::size_t kMostKeys = 256;         // more rows than any header has
constexpr std::size_t kMostGapStretches = 64;  // without a value of the block, one after the other
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// How a stretch of rows fits a block with values in certain columns.
enum class Fit {
    Belongs,  // has values there
    Gap,      // has neither values nor words there
    Ends      // a word stands there, or a key in front
};

CellKind KindAt(const Shape& shape, std::size_t column) {
    return column < shape.codes.size() ? KindOf(shape.codes[column]) : CellKind::Missing;
}

// In "Mean;5" below the rows ";0.1" and ";0.3", the 5 is no sample but the value of the key in front of it. Keys that
// have values of their own in front, as in "Mean;V;0.1" below ";;0.3", are beside the samples: two cells for each.
bool HasKeyInFront(const Shape& shape, const Shape& block) {
    std::size_t column = block.columns.front();
    const bool isWord = column > 0 && KindAt(shape, column - 1) == CellKind::Word;
    std::size_t cells = 0;
    for (; column > 0 && KindAt(shape, column - 1) != CellKind::Missing; --column) {
        if (KindAt(block, column - 1) != CellKind::Missing) {
            return false;
        }
        ++cells;
    }
    return isWord && cells % 2 == 1;
}

Fit FitOf(const Shape& shape, const Shape& block) {
    for (const std::size_t column : block.columns) {
        if (const CellKind kind = KindAt(shape, column); kind != CellKind::Missing) {
            return kind == CellKind::Word || HasKeyInFront(shape, block) ? Fit::Ends : Fit::Belongs;
        }
    }
    return Fit::Gap;
}

bool BeginsWithWord(const Shape& shape) {
    const auto first = std::ranges::find_if(shape.codes, [](char code) { return KindOf(code) != CellKind::Missing; });
    return first != shape.codes.end() && KindOf(*first) == CellKind::Word;
}

class Finder {
  public:
    Finder(const Table& table, bool wordsMayLead)
        : table_(table), stretches_(table.Stretches()), wordsMayLead_(wordsMayLead), owner_(stretches_.size(), kNone) {}

    // The longest stretches first, so that each takes in the shorter ones beside it.
    BlockSearch Find() {
        std::vector<std::size_t> seeds(stretches_.size());
        std::iota(seeds.begin(), seeds.end(), 0U);
        std::ranges::stable_sort(seeds, std::ranges::greater(), [this](std::size_t i) { return stretches_[i].rows; });
        for (const std::size_t seed : seeds) {
            if (owner_[seed] == kNone && !ShapeAt(seed).columns.empty()) {
                Grow(seed);
            }
        }
        std::ranges::sort(search_.blocks, {}, [](const TableBlock& block) { return block.stretches.front(); });
        MeasureColumns();
        return std::move(search_);
    }

  private:
    const Shape& ShapeAt(std::size_t stretch) const { return table_.ShapeOf(stretches_[stretch]); }

    void Grow(std::size_t seed) {
        std::size_t first = seed;
        while (true) {
            const std::size_t above = NextThatBelongs(first, -1, seed);
            if (above == kNone || ShapeAt(above).codes.size() < ShapeAt(seed).codes.size()) {
                break;  // above, a row of fewer cells belongs to a header
            }
            first = above;
        }
        std::size_t last = seed;
        for (std::size_t below = NextThatBelongs(last, 1, seed); below != kNone;
             below = NextThatBelongs(last, 1, seed)) {
            last = below;
        }
        first += IsHeaderOfNumbers(first, last) ? 1 : 0;
        std::size_t rows = 0;
        for (std::size_t i = first; i <= last; ++i) {
            rows += stretches_[i].rows;
        }
        if (rows < kFewestRows || HoldsKeys(seed, rows)) {
            return;
        }
        TableBlock block{.cells = ShapeAt(seed).codes.size()};
        for (std::size_t i = first; i <= last; ++i) {
            owner_[i] = search_.blocks.size();
            block.stretches.push_back(i);
        }
        search_.blocks.push_back(std::move(block));
    }

    std::size_t NextThatBelongs(std::size_t from, int step, std::size_t seed) const {
        std::size_t i = from;
        for (std::size_t gap = 0; gap < kMostGapStretches; ++gap) {
            i += static_cast<std::size_t>(step);  // wraps below 0
            if (i >= stretches_.size() || owner_[i] != kNone) {
                return kNone;
            }
            const Fit fit = FitOf(ShapeAt(i), ShapeAt(seed));
            if (fit != Fit::Gap) {
                return fit == Fit::Belongs ? i : kNone;
            }
        }
        return kNone;
    }

    // One row with numbers in columns that have none below, and no titles above that tell what these are.
    bool IsHeaderOfNumbers(std::size_t first, std::size_t last) const {
        const Shape& shape = ShapeAt(first);
        const bool hasTitles =
            first > 0 && ShapeAt(first - 1).hasWords && ShapeAt(first - 1).codes.size() >= shape.codes.size();
        if (first == last || stretches_[first].rows > 1 || shape.hasWords || hasTitles) {
            return false;
        }
        std::size_t width = 0;  // of the rows below, without empty cells at their end
        for (std::size_t i = first + 1; i <= last && width <= shape.columns.back(); ++i) {
            width = std::max(width, ShapeAt(i).columns.empty() ? 0 : ShapeAt(i).columns.back() + 1);
        }
        return width <= shape.columns.back();
    }

    // A few rows, most of which begin with another word than the row above: keys with their values. Notes their line.
    bool HoldsKeys(std::size_t seed, std::size_t rows) {
        if (wordsMayLead_ || rows > kMostKeys || !BeginsWithWord(ShapeAt(seed))) {
            return false;
        }
        const std::vector<Table::Line> lines = table_.Texts(stretches_[seed].firstLine, stretches_[seed].LastLine());
        std::size_t repeated = 0;
        for (std::size_t i = 1; i < lines.size(); ++i) {
            repeated += FirstCell(lines[i]) == FirstCell(lines[i - 1]) ? 1 : 0;
        }
        const bool areKeys = 2 * repeated < lines.size() - 1 || lines.size() < kFewestRows;
        if (areKeys && (search_.keyLine == 0 || search_.keyLine > stretches_[seed].firstLine)) {
            search_.keyLine = stretches_[seed].firstLine;
        }
        return areKeys;
    }

    std::string_view FirstCell(const Table::Line& line) const {
        for (const std::string_view cell : SplitCells(line.text, table_.CellForm().separator)) {
            if (!cell.empty()) {
                return cell;
            }
        }
        return {};
    }

    void MeasureColumns() {
        std::vector<std::size_t> counts(table_.Columns(), 0);  // values of each column so far
        std::size_t stretch = 0;
        std::size_t behind = 0;  // last line of the block above
        for (TableBlock& block : search_.blocks) {
            for (; stretch < block.stretches.front(); ++stretch) {
                Count(stretch, &counts);
            }
            block.headerLine = behind + 1;
            block.firstLine = block.headerEnd = stretches_[stretch].firstLine;
            std::vector<std::size_t> places(table_.Columns(), kNone);
            for (; stretch <= block.stretches.back(); ++stretch) {
                Measure(stretch, &counts, &places, &block);
            }
            block.lastLine = behind = stretches_[stretch - 1].LastLine();
            std::ranges::sort(block.columns, {}, &BlockColumn::column);
        }
    }

    void Count(std::size_t stretch, std::vector<std::size_t>* counts) const {
        for (const std::size_t column : ShapeAt(stretch).columns) {
            (*counts)[column] += stretches_[stretch].rows;
        }
    }

    void Measure(std::size_t index, std::vector<std::size_t>* counts, std::vector<std::size_t>* places,
                 TableBlock* block) const {
        const Stretch& stretch = stretches_[index];
        const std::size_t firstRow = block->rows;
        block->rows += stretch.rows;
        for (const std::size_t i : ShapeAt(index).columns) {
            const char code = ShapeAt(index).codes[i];
            if ((*places)[i] == kNone) {
                (*places)[i] = block->columns.size();
                block->columns.push_back({.column = i,
                                          .firstRow = firstRow,
                                          .firstValue = (*counts)[i],
                                          .firstLine = stretch.firstLine,
                                          .unit = UnitOf(code)});
            }
            BlockColumn& column = block->columns[(*places)[i]];
            if (const std::size_t end = column.firstRow + column.rows; end != firstRow && column.holeLine == 0) {
                column.holeLine = LineOfRow(table_, *block, end);
            }
            if (UnitOf(code) != column.unit && column.otherUnitLine == 0) {
                column.otherUnitLine = stretch.firstLine;
            }
            column.hasStamps = column.hasStamps || KindOf(code) == CellKind::Stamp;
            column.rows = block->rows - column.firstRow;
            column.values += stretch.rows;
            column.lastLine = stretch.LastLine();
        }
        Count(index, counts);
    }

    const Table& table_;
    const std::vector<Stretch>& stretches_;
    const bool wordsMayLead_;
    std::vector<std::size_t> owner_;  // block of each stretch
    BlockSearch search_;
};

// All columns reach from the end of the one block to the start of the next.
bool Meet(const TableBlock& block, const TableBlock& next) {
    const auto meet = [&](const BlockColumn& column, const BlockColumn& other) {
        return column.column == other.column && column.unit == other.unit && column.values == column.rows &&
               other.values == other.rows && column.firstRow + column.rows == block.rows && other.firstRow == 0 &&
               column.firstValue + column.rows == other.firstValue;
    };
    return std::ranges::equal(block.columns, next.columns, meet);
}

// The first column goes on rising where the next block begins, in steps like those above if `inStep`; or it does not
// rise there at all, and need not be `inStep`.
bool RisesOn(const Table& table, const TableBlock& block, const TableBlock& next, bool inStep) {
    const BlockColumn& first = block.columns.front();
    const auto begin = table.Values(first.column).begin() + static_cast<std::ptrdiff_t>(first.firstValue);
    const auto middle = begin + static_cast<std::ptrdiff_t>(first.rows);
    const auto end = middle + static_cast<std::ptrdiff_t>(next.columns.front().rows);
    if (first.rows < kFewestRows || !std::is_sorted(middle, end) || *middle == *(end - 1)) {
        return !inStep;
    }
    const bool rises = std::is_sorted(begin, end) && *begin < *(middle - 1);
    return rises && (!inStep || *middle - *(middle - 1) <= 2 * (*(middle - 1) - *(middle - 2)));
}

enum class Remark { No, Text, Marked };

// Whether a line between rows is no more than a remark: it has the mark of one, or is one text beside several columns;
// it gives no titles, and no key that is known.
Remark ReadRemark(const Table& table, const TableBlock& block, const std::string& line) {
    const char separator = table.CellForm().separator;
    const std::string_view text = Trimmed(line);
    const bool isMarked = text.starts_with('#') || text.starts_with("//") || text.starts_with('%') ||
                          (text.starts_with(';') && separator != ';');
    QStringList cells = WordCells(line, separator, block.cells);
    cells.removeAll(QString());
    const bool isOneText = cells.size() == 1 && block.columns.size() > 1;
    const auto pair = SplitPair(cells.value(0));
    const bool isKey = ReadKey(pair ? pair->first : cells.value(0)).key != Key::Other;
    const bool mayBeTitles = 2 * static_cast<std::size_t>(cells.size()) >= block.columns.size() && !isOneText;
    const bool areTitles = mayBeTitles && std::ranges::any_of(cells, [](const QString& cell) {
                               const Title title = ReadTitle(cell);
                               return title.Means() != Meaning::Unknown || !title.unit.isEmpty();
                           });
    return isKey || areTitles ? Remark::No : isMarked ? Remark::Marked : isOneText ? Remark::Text : Remark::No;
}

// The next block goes on where this one ends: prints in pages repeat their titles, and remarks may stand between rows.
bool GoesOn(const Table& table, const TableBlock& block, const TableBlock& next) {
    if (!Meet(block, next)) {
        return false;
    }
    const std::vector<Table::Line> between = table.Texts(next.headerLine, next.headerEnd - 1);
    std::vector<Remark> remarks;
    std::ranges::transform(between, std::back_inserter(remarks),
                           [&](const Table::Line& line) { return ReadRemark(table, block, line.text); });
    if (!remarks.empty() && std::ranges::find(remarks, Remark::No) == remarks.end()) {
        return RisesOn(table, block, next, std::ranges::find(remarks, Remark::Text) != remarks.end());
    }
    const std::vector<Table::Line> titles = table.Texts(block.headerLine, block.headerEnd);
    return RisesOn(table, block, next, true) && std::ranges::any_of(between, [&titles](const Table::Line& line) {
               return std::ranges::find(titles, line.text, &Table::Line::text) != titles.end();
           });
}

void Join(TableBlock* block, const TableBlock& next) {
    for (std::size_t i = 0; i < block->columns.size(); ++i) {
        block->columns[i].rows += next.columns[i].rows;
        block->columns[i].values += next.columns[i].values;
        block->columns[i].lastLine = next.columns[i].lastLine;
    }
    block->rows += next.rows;
    block->lastLine = next.lastLine;
    block->stretches.insert(block->stretches.end(), next.stretches.begin(), next.stretches.end());
}

}  // namespace

BlockSearch FindBlocks(const Table& table, bool wordsMayLead) {
    BlockSearch search = Finder(table, wordsMayLead).Find();
    std::vector<TableBlock> joined;
    for (TableBlock& block : search.blocks) {
        if (!joined.empty() && GoesOn(table, joined.back(), block)) {
            Join(&joined.back(), block);
        } else {
            joined.push_back(std::move(block));
        }
    }
    search.blocks = std::move(joined);
    return search;
}

std::size_t LineOfRow(const Table& table, const TableBlock& block, std::size_t row) {
    for (const std::size_t i : block.stretches) {
        const Stretch& stretch = table.Stretches()[i];
        if (row < stretch.rows) {
            return stretch.LineOf(row);
        }
        row -= stretch.rows;
    }
    return block.lastLine;
}

bool IsSetting(const Table& table, const TableBlock& block, const BlockColumn& column) {
    const std::size_t most = std::ranges::max(block.columns, {}, &BlockColumn::values).values;
    const auto hasKey = [&](std::size_t stretch) {
        const Shape& shape = table.ShapeOf(table.Stretches()[stretch]);
        const bool hasValue = KindAt(shape, column.column) != CellKind::Missing;
        return hasValue == (KindAt(shape, column.column - 1) == CellKind::Word);
    };
    return 2 * column.values < most ||
           (column.values < most && column.column > 0 && std::ranges::all_of(block.stretches, hasKey));
}

}  // namespace recording
