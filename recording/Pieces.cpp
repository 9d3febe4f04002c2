#include "recording/Pieces.h"

#include <algorithm>
#include <iterator>

namespace recording {
namespace {

constexpr std::size_t kFewestValues = 2;
constexpr std::size_t kMostHeaderRows = 4;  // of numbers alone

class Cutter {
  public:
    Cutter(const Table& table, const TableBlock& block, const Heading& heading, std::span<const Candidate> candidates)
        : table_(table), block_(block), heading_(heading), candidates_(candidates) {}

    // The rows that are samples, from the first to before the last: not those at the top that are numbers of a header,
    // nor a few at either end in which no time stands though the others have one.
    Piece RowsOfSamples() const {
        std::size_t from = block_.rows;
        std::size_t to = 0;
        for (const Candidate& candidate : candidates_) {
            const bool isSure = &candidate == &candidates_.front() || candidate.title.Means() == Meaning::Time;
            if (candidate.IsAxis() && isSure && !candidate.values.empty()) {
                from = std::min(from, candidate.place->firstRow);
                to = std::max(to, candidate.place->firstRow + candidate.place->rows);
            }
        }
        const bool isCut = from < to && from <= kMostHeaderRows && block_.rows - to <= kMostHeaderRows;
        const Piece rows{std::max(isCut ? from : 0, RowsOfHeader()), isCut ? to : block_.rows};
        return rows.from + kFewestValues <= rows.to ? rows : Piece{0, block_.rows};
    }

    // Rows at which the time, or the index, begins again.
    std::vector<std::size_t> Restarts() const {
        for (const Candidate& candidate : candidates_) {
            if (candidate.IsAxis() && !candidate.course.restarts.empty() && !IsPartOfClock(candidate)) {
                std::vector<std::size_t> rows;
                std::ranges::transform(candidate.course.restarts, std::back_inserter(rows),
                                       [&](std::size_t row) { return row + candidate.place->firstRow; });
                return rows;
            }
        }
        const bool hasAxis = std::ranges::any_of(candidates_, &Candidate::IsAxis);
        return hasAxis ? std::vector<std::size_t>() : candidates_.size() == 1 ? StartsBehindGaps() : NewNumbers();
    }

  private:
    // The fraction of a second, beside a time of day.
    bool IsPartOfClock(const Candidate& candidate) const {
        const bool isFraction =
            candidate.unit && IsSeconds(*candidate.unit) && candidate.course.highest * candidate.unit->scale < 1.0;
        return isFraction && std::ranges::any_of(candidates_, [](const Candidate& other) {
                   return other.place->hasStamps && other.course.rises;
               });
    }

    // Rows at which a rising number of the channel or segment becomes another.
    std::vector<std::size_t> NewNumbers() const {
        std::vector<std::size_t> rows;
        for (const Candidate& candidate : candidates_) {
            const Meaning meaning = candidate.title.Means();
            const bool isNumber = meaning == Meaning::Segment || meaning == Meaning::WhichChannel;
            if (!isNumber || candidate.isSetting || !rows.empty() || !std::ranges::is_sorted(candidate.values)) {
                continue;
            }
            for (std::size_t i = 1; i < candidate.values.size(); ++i) {
                if (candidate.values[i] != candidate.values[i - 1]) {
                    rows.push_back(i + candidate.place->firstRow);
                }
            }
        }
        const bool areLong = 2 * (rows.size() + 1) <= block_.rows;  // not one for each row
        return areLong ? rows : std::vector<std::size_t>();
    }

    // Empty lines that divide a single column into runs of one length begin another recording, if the runs are long.
    std::vector<std::size_t> StartsBehindGaps() const {
        constexpr std::size_t kFewestRows = 16;
        const std::vector<Stretch>& stretches = table_.Stretches();
        const std::size_t length = stretches[block_.stretches.front()].rows;
        std::vector<std::size_t> rows;
        for (std::size_t i = 1; i < block_.stretches.size(); ++i) {
            const Stretch& above = stretches[block_.stretches[i - 1]];
            const Stretch& stretch = stretches[block_.stretches[i]];
            const bool isGap =
                stretch.firstLine > above.LastLine() + 1 && table_.Texts(above.LastLine(), stretch.firstLine).empty();
            if (!isGap || stretch.rows != length || length < kFewestRows) {
                return {};
            }
            rows.push_back(i * length);
        }
        return rows;
    }

    // The first row is written as a count, without the decimal marks of those below: of the rows, where there is one
    // column, or of the columns, as programs number them in place of titles. "0,1" may be the first time and sample.
    bool IsFirstRowACount() const {
        const auto isCount = [&](const Candidate& candidate, double count) {
            const std::size_t line = block_.firstLine;
            return !candidate.values.empty() && candidate.values.front() == count && candidate.place->firstRow == 0 &&
                   !table_.HasMarks(candidate.place->column, line, line) &&
                   table_.HasMarks(candidate.place->column, line + 1, LineOfRow(table_, block_, 1));
        };
        if (heading_.titleCells > 0 || block_.rows <= kFewestValues) {
            return false;
        }
        if (candidates_.size() == 1) {
            return isCount(candidates_.front(), static_cast<double>(block_.rows - 1));
        }
        const Candidate& first = candidates_.front();
        double number = first.values.empty() ? 0.0 : first.values.front();
        const bool isNumbering = number == 1.0 || (number == 0.0 && candidates_.size() > 2);
        return isNumbering && !(first.course.rises && first.values[0] < first.values[1]) &&
               std::all_of(candidates_.begin() + 1, candidates_.end(),
                           [&](const Candidate& candidate) { return isCount(candidate, ++number); });
    }

    // Behind them the first column rises evenly, and no title says that it is anything but a time.
    std::size_t RowsOfHeader() const {
        constexpr std::size_t kFewestBehind = 8;
        const Candidate& first = candidates_.front();
        if (IsFirstRowACount()) {
            return 1;
        }
        const bool mayBeTime = first.title.name.isEmpty() ? heading_.titleCells == 0 : MayBeAxis(first.title);
        if (!mayBeTime || candidates_.size() < 2 || first.course.rises || first.place->hasStamps) {
            return 0;
        }
        for (std::size_t rows = 1; rows <= kMostHeaderRows && rows + kFewestBehind <= first.values.size(); ++rows) {
            if (CourseOf(first.values.subspan(rows)).isEven) {
                return rows + first.place->firstRow;
            }
        }
        return 0;
    }

    static bool MayBeAxis(const Title& title) {
        const Meaning meaning = title.Means();
        return meaning == Meaning::Time || meaning == Meaning::MaybeTime || meaning == Meaning::Index;
    }

    const Table& table_;
    const TableBlock& block_;
    const Heading& heading_;
    const std::span<const Candidate> candidates_;
};

}  // namespace

std::vector<Piece> FindPieces(const Table& table, const TableBlock& block, const Heading& heading,
                              std::span<const Candidate> candidates) {
    const Cutter cutter(table, block, heading, candidates);
    std::vector<std::size_t> ends = cutter.Restarts();
    auto [from, to] = cutter.RowsOfSamples();
    if (ends.empty() && from == 0 && to == block.rows) {
        return {};
    }
    ends.push_back(to);
    std::vector<Piece> pieces;
    for (const std::size_t end : ends) {
        if (end >= from + kFewestValues) {
            pieces.push_back({from, end});
            from = end;
        }
    }
    return pieces;
}

Divider::Divider(const Table& table, const TableBlock& block)
    : table_(table), block_(block), valuesAbove_(block.columns.size(), 0) {}

const Stretch& Divider::At(std::size_t i) const { return table_.Stretches()[block_.stretches[i]]; }

bool Divider::HasValueAt(std::size_t i, const BlockColumn& column) const {
    const std::string& codes = table_.ShapeOf(At(i)).codes;
    return column.column < codes.size() && HasValue(codes[column.column]);
}

TableBlock Divider::Next(const Piece& piece) {
    for (; begin_ + At(index_).rows <= piece.from; begin_ += At(index_++).rows) {
        for (std::size_t i = 0; i < valuesAbove_.size(); ++i) {
            valuesAbove_[i] += HasValueAt(index_, block_.columns[i]) ? At(index_).rows : 0;
        }
    }
    TableBlock part{.cells = block_.cells,
                    .rows = piece.to - piece.from,
                    .firstLine = At(index_).LineOf(piece.from - begin_),
                    .headerLine = block_.headerLine,
                    .headerEnd = block_.headerEnd};
    for (std::size_t i = index_, begin = begin_; begin < piece.to; begin += At(i++).rows) {
        part.stretches.push_back(block_.stretches[i]);
        part.lastLine = At(i).LineOf(std::min(At(i).rows, piece.to - begin) - 1);
    }
    for (std::size_t i = 0; i < valuesAbove_.size(); ++i) {
        if (const BlockColumn column = PartOf(block_.columns[i], valuesAbove_[i], piece); column.rows > 0) {
            part.columns.push_back(column);
        }
    }
    return part;
}

// The column in the rows of the piece; no rows if it has no value there.
BlockColumn Divider::PartOf(const BlockColumn& column, std::size_t valuesAbove, const Piece& piece) const {
    BlockColumn part = column;
    part.firstValue += valuesAbove + (HasValueAt(index_, column) ? piece.from - begin_ : 0);
    part.rows = part.values = part.holeLine = 0;
    std::size_t lineBelow = 0;  // of the first row below those that have a value
    for (std::size_t i = index_, begin = begin_; begin < piece.to; begin += At(i++).rows) {
        const std::size_t first = std::max(begin, piece.from);
        const std::size_t last = std::min(begin + At(i).rows, piece.to);
        if (!HasValueAt(i, column)) {
            lineBelow = lineBelow == 0 && part.rows > 0 ? At(i).LineOf(first - begin) : lineBelow;
            continue;
        }
        part.holeLine = part.holeLine == 0 ? lineBelow : part.holeLine;
        part.firstRow = part.rows == 0 ? first - piece.from : part.firstRow;
        part.firstLine = part.rows == 0 ? At(i).LineOf(first - begin) : part.firstLine;
        part.rows = last - piece.from - part.firstRow;
        part.values += last - first;
        part.lastLine = At(i).LineOf(last - 1 - begin);
    }
    return part;
}

}  // namespace recording
