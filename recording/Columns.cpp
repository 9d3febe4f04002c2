#include "recording/Columns.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "recording/Pieces.h"
#include "recording/Roles.h"

namespace recording {
namespace {

constexpr std::size_t kFewestValues = 2;
constexpr qsizetype kShown = 40;          // of a text, in a sentence
constexpr std::size_t kLinesToShow = 20;  // in which a text is sought that is no number

class ColumnReader {
  public:
    ColumnReader(Table& table, const TableBlock& block, const Heading& heading, const Facts& facts)
        : table_(table), block_(block), heading_(heading), facts_(facts) {
        for (const BlockColumn& column : block.columns) {
            candidates_.push_back(Look(column, IsSetting(table, block, column)));
        }
        FindRoles(&candidates_);
        NameByFacts();
    }

    std::span<const Candidate> Candidates() const { return candidates_; }

    Block Read() const {
        Block block{.firstLine = block_.firstLine, .lastLine = block_.lastLine, .rows = block_.rows};
        for (const Candidate& candidate : candidates_) {
            block.columns.push_back(ColumnOf(candidate));
        }
        for (std::size_t column = 0; column < block_.cells; ++column) {
            if (std::optional<Column> unread = UnreadColumn(column)) {
                block.columns.push_back(std::move(*unread));
            }
        }
        std::ranges::sort(block.columns, {}, &Column::number);
        return block;
    }

  private:
    Candidate Look(const BlockColumn& column, bool isSetting) {
        Candidate candidate{.place = &column, .title = heading_.titles[column.column], .isSetting = isSetting};
        if (column.values == column.rows) {
            candidate.values = std::span(table_.Values(column.column)).subspan(column.firstValue, column.rows);
        }
        if (column.unit != 0 && !column.hasStamps) {
            candidate.title.unit = UnitSymbol(column.unit);
        }
        candidate.unit = ReadUnit(candidate.title.unit.toStdString());
        candidate.course = CourseOf(candidate.values);
        if (candidates_.empty() && candidate.title.name.isEmpty() && !RestartsApart(candidate)) {
            candidate.course.restarts.clear();
        }
        return candidate;
    }

    // Lines without a cell stand in front of the rows at which it begins again.
    bool RestartsApart(const Candidate& candidate) const {
        return std::ranges::all_of(candidate.course.restarts, [&](std::size_t row) {
            row += candidate.place->firstRow;
            return LineOfRow(table_, block_, row) > LineOfRow(table_, block_, row - 1) + 1;
        });
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
        if (candidate.IsAxis()) {
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

    // A column of texts that begin as numbers do: with a unit that nobody knows, or the other decimal mark.
    std::optional<Column> UnreadColumn(std::size_t index) const {
        static const QRegularExpression number(QStringLiteral(R"(^[$<>=~('"]*[+-]?\s*[.,]?\d)"));
        std::size_t words = 0;
        for (const std::size_t i : block_.stretches) {
            const Stretch& stretch = table_.Stretches()[i];
            const std::string& codes = table_.ShapeOf(stretch).codes;
            words += index < codes.size() && KindOf(codes[index]) == CellKind::Word ? stretch.rows : 0;
        }
        const bool isRead = std::ranges::find(block_.columns, index, &BlockColumn::column) != block_.columns.end();
        const Title& title = heading_.titles[index];
        const Meaning meaning = title.Means();
        if (isRead || 2 * words < block_.rows || meaning == Meaning::Time || meaning == Meaning::Index) {
            return std::nullopt;
        }
        const std::vector<Table::Line> lines = table_.Texts(block_.firstLine, block_.firstLine + kLinesToShow);
        for (const Table::Line& line : lines) {
            const std::vector<std::string_view> cells = SplitCells(line.text, table_.CellForm().separator);
            const QString text = index < cells.size() ? QString::fromUtf8(Content(cells[index])) : QString();
            if (text.contains(number)) {
                Column column{.number = index + 1, .name = title.name, .unit = title.unit};
                column.fault = FaultOfText(line.number, text.left(kShown), NameOfColumn(column.number, column.name));
                column.firstLine = block_.firstLine;
                column.lastLine = block_.lastLine;
                return column;
            }
        }
        return std::nullopt;
    }

    static QString FaultOfText(std::size_t line, const QString& text, const QString& column) {
        return QStringLiteral(
                   "\"%2\" in line %1 is no number: its unit or its marks are unknown in %3. Write plain numbers, "
                   "choose the separator and the decimal mark, or take another column.")
            .arg(line)
            .arg(text, column);
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
            if (!candidate.IsAxis() || &candidate == &channel) {
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
        if (axis.place->hasStamps) {
            return axis.place->unit == kTwoParts ? std::nullopt : std::optional(1.0);
        }
        if (axis.unit && IsSeconds(*axis.unit)) {
            return axis.unit->scale;
        }
        if (axis.meaning == Meaning::Index) {
            return facts_.interval;
        }
        return axis.meaning == Meaning::Time && axis.title.IsPlainTime() ? std::optional(1.0) : std::nullopt;
    }

    // A time without a unit is in seconds, unless an interval in the header says otherwise.
    bool IsContradicted(const Candidate& axis, double interval) const {
        constexpr double kRounding = 0.01;
        const bool isTold = axis.place->hasStamps || axis.unit || axis.meaning == Meaning::Index || !facts_.interval;
        return !isTold && std::fabs(interval - *facts_.interval) > kRounding * interval;
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
            if (timing.interval && IsContradicted(*axis, *timing.interval)) {
                timing.interval.reset();
                return timing;
            }
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
    const std::vector<Piece> pieces = FindPieces(table, block, heading, whole.Candidates());
    if (pieces.empty()) {
        return {whole.Read()};
    }
    std::vector<Block> blocks;
    Divider divider(table, block);
    for (const Piece& rows : pieces) {
        const TableBlock piece = divider.Next(rows);
        blocks.push_back(ColumnReader(table, piece, heading, facts).Read());
    }
    return blocks;
}

}  // namespace recording
