#include "recording/Columns.h"

#include <algorithm>
#include <iterator>

#include "recording/Interval.h"
#include "recording/Units.h"

namespace recording {
namespace {

constexpr std::size_t kFewestValues = 2;

// A column while its meaning is sought.
struct Candidate {
    const BlockColumn* place = nullptr;
    Title title;
    std::optional<Unit> unit = {};
    std::span<double> values = {};  // empty if they are not one for each row
    Course course = {};
    Meaning meaning = Meaning::Unknown;
    bool isSetting = false;  // beside the samples
    bool isGuess = false;    // nothing but its rise tells that it is a time
};

bool IsAxis(const Candidate& candidate) {
    return candidate.meaning == Meaning::Time || candidate.meaning == Meaning::Index ||
           candidate.meaning == Meaning::Axis;
}

// By title and unit; a word that may mean a channel too needs a column that rises.
Meaning MeaningOf(const Candidate& candidate) {
    Meaning meaning = candidate.title.Means();
    const bool rises = candidate.course.rises || !candidate.course.restarts.empty();
    const bool isConstant = candidate.course.lowest == candidate.course.highest;
    if (candidate.place->hasStamps || meaning == Meaning::Time) {
        return Meaning::Time;
    }
    if (candidate.unit && IsSeconds(*candidate.unit)) {
        const bool isUnitOnly = candidate.title.name.isEmpty() || candidate.title.name == candidate.title.unit;
        return rises || isUnitOnly ? Meaning::Time : Meaning::Channel;
    }
    if (candidate.unit && candidate.unit->base != 0) {
        const bool isSpectrum = IsHertz(*candidate.unit) && rises && meaning != Meaning::Channel;
        return isSpectrum ? Meaning::Axis : meaning == Meaning::Extra ? Meaning::Extra : Meaning::Channel;
    }
    if (Title{candidate.title.unit, {}}.Means() == Meaning::Index) {
        meaning = Meaning::Index;  // "Sequence" in the line of units
    }
    switch (meaning) {
        case Meaning::MaybeTime:
            return rises ? Meaning::Time : Meaning::Channel;
        case Meaning::Axis:
            return rises ? Meaning::Axis : Meaning::Channel;
        case Meaning::Index:
            return rises || (isConstant && candidate.title.name.size() > 1) ? Meaning::Index : Meaning::Channel;
        case Meaning::Segment:
            return isConstant || std::ranges::is_sorted(candidate.values) ? Meaning::Segment : Meaning::Channel;
        default:
            return meaning;
    }
}

class ColumnReader {
  public:
    ColumnReader(Table& table, const TableBlock& block, const Heading& heading, const Facts& facts)
        : table_(table), block_(block), heading_(heading), facts_(facts) {
        std::size_t most = 0;
        for (const BlockColumn& column : block.columns) {
            most = std::max(most, column.values);
        }
        for (const BlockColumn& column : block.columns) {
            candidates_.push_back(Look(column, 2 * column.values < most));
        }
        GuessTime();
        LeaveOutWhatRunsWithTime();
        NameByFacts();
    }

    // Rows at the top that are no samples but numbers of a header: behind them the first column rises evenly, and no
    // title says what it is.
    std::size_t RowsOfHeader() const {
        constexpr std::size_t kMost = 4;
        constexpr std::size_t kFewestBehind = 8;
        const Candidate& first = candidates_.front();
        if (heading_.titleCells > 0 || candidates_.size() < 2 || first.course.rises || first.place->hasStamps) {
            return 0;
        }
        for (std::size_t rows = 1; rows <= kMost && rows + kFewestBehind <= first.values.size(); ++rows) {
            if (CourseOf(first.values.subspan(rows)).isEven) {
                return rows + first.place->firstRow;
            }
        }
        return 0;
    }

    // Rows at which the time, or the index, begins again.
    std::vector<std::size_t> Restarts() const {
        for (const Candidate& candidate : candidates_) {
            if (IsAxis(candidate) && !candidate.course.restarts.empty()) {
                std::vector<std::size_t> rows;
                std::ranges::transform(candidate.course.restarts, std::back_inserter(rows),
                                       [&](std::size_t row) { return row + candidate.place->firstRow; });
                return rows;
            }
        }
        return {};
    }

    Block Read() const {
        Block block{.firstLine = block_.firstLine, .lastLine = block_.lastLine, .rows = block_.rows};
        for (const Candidate& candidate : candidates_) {
            block.columns.push_back(ColumnOf(candidate));
        }
        return block;
    }

  private:
    Candidate Look(const BlockColumn& column, bool isSetting) {
        Candidate candidate{.place = &column, .title = heading_.titles[column.column], .isSetting = isSetting};
        if (column.values == column.rows) {
            candidate.values = std::span(table_.Values(column.column)).subspan(column.firstValue, column.rows);
        }
        if (column.hasStamps) {
            PassMidnights(candidate.values);
        }
        if (column.unit != 0) {
            candidate.title.unit = UnitSymbol(column.unit);
        }
        candidate.unit = ReadUnit(candidate.title.unit.toStdString());
        candidate.course = CourseOf(candidate.values);
        candidate.meaning = isSetting ? Meaning::Extra : MeaningOf(candidate);
        GuessRestarts(&candidate);
        return candidate;
    }

    // A column that no title calls a time restarts only where lines without a cell stand between the rows.
    void GuessRestarts(Candidate* candidate) const {
        std::vector<std::size_t>& rows = candidate->course.restarts;
        const auto isApart = [&](std::size_t row) {
            row += candidate->place->firstRow;
            return LineOfRow(table_, block_, row) > LineOfRow(table_, block_, row - 1) + 1;
        };
        const bool isUntitled = candidate->meaning == Meaning::Unknown && candidate->title.name.isEmpty();
        if (isUntitled && candidates_.empty() && !rows.empty() && std::ranges::all_of(rows, isApart)) {
            candidate->meaning = Meaning::Time;
            candidate->isGuess = true;
        }
    }

    bool IsPossibleChannel(const Candidate& candidate) const {
        return candidate.meaning == Meaning::Channel || candidate.meaning == Meaning::Unknown;
    }

    // Without a title that tells, the first column is the time if it rises and is not alone.
    void GuessTime() {
        const auto first = std::ranges::find_if(candidates_, [](const Candidate& c) { return !c.isSetting; });
        const bool isKnown = std::ranges::any_of(candidates_, IsAxis);
        const auto others =
            std::ranges::count_if(candidates_, [this](const Candidate& c) { return IsPossibleChannel(c); });
        if (!isKnown && others > 1 && first->meaning == Meaning::Unknown && first->course.rises) {
            first->meaning = Meaning::Time;
            first->isGuess = true;
        }
    }

    // A column that nothing calls a channel and that rises in line with the time is another time or index, as long as
    // a channel is left.
    void LeaveOutWhatRunsWithTime() {
        auto left = std::ranges::count_if(candidates_, [this](const Candidate& c) { return IsPossibleChannel(c); });
        for (Candidate& candidate : candidates_) {
            const auto runsWith = [&candidate](const Candidate& axis) {
                return IsAxis(axis) && axis.course.rises && IsInLine(candidate.values, axis.values);
            };
            if (candidate.meaning == Meaning::Unknown && candidate.course.rises && left > 1 &&
                std::ranges::any_of(candidates_, runsWith)) {
                candidate.meaning = Meaning::Time;
                candidate.isGuess = true;
                --left;
            } else if (candidate.meaning == Meaning::Unknown) {
                candidate.meaning = Meaning::Channel;
            }
        }
    }

    // Names and units from keys in the header, where the file has no titles.
    void NameByFacts() {
        std::vector<Candidate*> channels;
        for (Candidate& candidate : candidates_) {
            if (candidate.meaning == Meaning::Channel) {
                channels.push_back(&candidate);
            } else if (candidate.meaning == Meaning::Time && candidate.title.unit.isEmpty()) {
                candidate.title.unit = facts_.timeUnit;
                candidate.unit = ReadUnit(facts_.timeUnit.toStdString());
            }
        }
        Spread(facts_.names, &Title::name, channels);
        Spread(facts_.units, &Title::unit, channels);
    }

    static void Spread(const std::vector<Facts::Entry>& entries, QString Title::*text,
                       const std::vector<Candidate*>& channels) {
        const auto set = [text](Candidate* channel, const QString& value) {
            (channel->title.*text) = (channel->title.*text).isEmpty() ? value : channel->title.*text;
        };
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const auto right = std::ranges::find_if(
                channels, [&](const Candidate* channel) { return channel->place->column > entries[i].column; });
            if (entries[i].isBeside && right != channels.end()) {
                set(*right, entries[i].text);
            } else if (!entries[i].isBeside && i < channels.size()) {
                set(channels[i], entries[i].text);
            }
        }
        if (entries.size() == 1 && text == &Title::unit) {
            for (Candidate* const channel : channels) {
                set(channel, entries[0].text);
            }
        }
    }

    Role RoleOf(const Candidate& candidate) const {
        if (IsAxis(candidate)) {
            return Role::Time;
        }
        return candidate.meaning == Meaning::Channel ? Role::Channel : Role::Other;
    }

    Column ColumnOf(const Candidate& candidate) const {
        const BlockColumn& place = *candidate.place;
        Column column{.number = place.column + 1,
                      .name = candidate.title.name,
                      .unit = candidate.title.unit,
                      .role = RoleOf(candidate),
                      .firstRow = place.firstRow,
                      .rowsLeftOut = block_.rows - place.rows,
                      .firstLine = place.firstLine,
                      .lastLine = place.lastLine};
        column.fault = FaultOf(place, column.name);
        if (column.fault.isEmpty()) {
            column.values = candidate.values;
            column.lowest = candidate.course.lowest;
            column.highest = candidate.course.highest;
            column.timing = TimingOf(candidate);
        }
        return column;
    }

    QString FaultOf(const BlockColumn& place, const QString& name) const {
        const QString column = NameOfColumn(place.column + 1, name);
        if (place.hasStamps) {
            return QStringLiteral("Dates or times of day stand in %1. Take another column.").arg(column);
        }
        if (place.values < kFewestValues) {
            return QStringLiteral(
                       "One number only stands in %1, and a recording has two at least. Take another column.")
                .arg(column);
        }
        if (place.holeLine != 0) {
            return QStringLiteral(
                       "Line %1 has no number in %2, and others follow below. Take another column, or save "
                       "the rows above or below that line alone.")
                .arg(place.holeLine)
                .arg(column);
        }
        if (place.otherUnitLine != 0) {
            return QStringLiteral("In line %1 the unit changes in %2. Write all numbers of a column in one unit.")
                .arg(place.otherUnitLine)
                .arg(column);
        }
        const auto [point, comma] = table_.MixedMarks(place.column, place.firstLine, place.lastLine);
        if (point != 0) {
            return QStringLiteral(
                       "In %3 the decimal mark is a point by line %1 and a comma by line %2. Write all numbers "
                       "with one of them.")
                .arg(point)
                .arg(comma)
                .arg(column);
        }
        return {};
    }

    // The nearest time to the left, else to the right; a time tells more than an index.
    const Candidate* AxisOf(const Candidate& channel) const {
        const Candidate* best = nullptr;
        for (const Candidate& candidate : candidates_) {
            if (!IsAxis(candidate) || &candidate == &channel) {
                continue;
            }
            const bool isLeft = candidate.place->column < channel.place->column;
            const bool isTime = candidate.meaning == Meaning::Time && !candidate.isGuess;
            const bool bestIsTime = best != nullptr && best->meaning == Meaning::Time && !best->isGuess;
            if (best == nullptr || (isTime && !bestIsTime) || (isTime == bestIsTime && isLeft)) {
                best = &candidate;
            }
        }
        return best;
    }

    // How many seconds a step of one is; nothing if nobody knows.
    std::optional<double> SecondsOf(const Candidate& axis) const {
        if (axis.unit && IsSeconds(*axis.unit)) {
            return axis.unit->scale;
        }
        if (axis.meaning == Meaning::Index) {
            return facts_.interval;
        }
        // An axis x may be anything.
        const bool isTime = axis.meaning == Meaning::Time && !axis.isGuess && axis.title.unit.isEmpty() &&
                            !axis.title.name.startsWith(u'x', Qt::CaseInsensitive);
        return isTime ? std::optional(1.0) : std::nullopt;
    }

    // The axis in the rows of the channel; nothing if it has none there.
    static std::span<const double> TimesOf(const Candidate& axis, const Candidate& channel) {
        const std::size_t from = channel.place->firstRow - axis.place->firstRow;
        const bool covers = axis.place->otherUnitLine == 0 && axis.place->firstRow <= channel.place->firstRow &&
                            from + channel.place->rows <= axis.values.size();
        return covers ? std::span<const double>(axis.values).subspan(from, channel.place->rows)
                      : std::span<const double>();
    }

    Timing TimingOf(const Candidate& channel) const {
        Timing timing;
        const auto rows = static_cast<double>(channel.place->rows);
        const Candidate* const axis = AxisOf(channel);
        const std::span<const double> times = axis != nullptr ? TimesOf(*axis, channel) : std::span<const double>();
        const bool isWhole = axis != nullptr && times.size() == axis->values.size();
        const Course course = isWhole ? axis->course : CourseOf(times);
        if (course.rises) {
            const std::optional<double> seconds = SecondsOf(*axis);
            const double rise = (times.back() - times.front()) * seconds.value_or(0.0);
            if (!course.isEven) {
                timing.times = times;
                timing.duration = seconds ? std::optional(rise) : std::nullopt;
                return timing;
            }
            timing.interval = rise > 0.0 && !course.isCoarse ? std::optional(rise / (rows - 1.0)) : std::nullopt;
        }
        if (!timing.interval && (axis == nullptr || axis->meaning != Meaning::Axis)) {
            timing.interval = facts_.interval;
        }
        timing.duration = timing.interval ? std::optional(*timing.interval * rows) : std::nullopt;
        return timing;
    }

    Table& table_;
    const TableBlock& block_;
    const Heading& heading_;
    const Facts& facts_;
    std::vector<Candidate> candidates_;
};

}  // namespace

std::vector<Block> ReadColumns(Table& table, const TableBlock& block, const Heading& heading, const Facts& facts) {
    const ColumnReader whole(table, block, heading, facts);
    std::vector<std::size_t> ends = whole.Restarts();
    std::size_t from = whole.RowsOfHeader();
    if (ends.empty() && from == 0) {
        return {whole.Read()};
    }
    ends.push_back(block.rows);
    std::vector<Block> pieces;
    for (const std::size_t end : ends) {
        const TableBlock piece = PieceOf(table, block, from, end);
        pieces.push_back(ColumnReader(table, piece, heading, facts).Read());
        from = end;
    }
    return pieces;
}

}  // namespace recording
