#include "recording/Header.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "recording/Keys.h"

namespace recording {
namespace {

// A key with the cells behind it.
struct KeyedCells {
    QString key;
    QStringList values;
    std::size_t column = 0;  // of the first value
    bool isBeside = false;
};

class FactReader {
  public:
    explicit FactReader(const NumberStyle& style) : style_(style) {}

    void Take(const KeyedCells& entry) {
        const KeyText key = ReadKey(entry.key);
        switch (key.key) {
            case Key::Interval:
            case Key::Rate:
                TakeInterval(entry, key);
                break;
            case Key::TimeUnit:
                facts.timeUnit = facts.timeUnit.isEmpty() ? entry.values.value(0) : facts.timeUnit;
                break;
            case Key::Unit:
                TakeTexts(entry, &facts.units, &unitKey_);
                break;
            case Key::Name:
                TakeTexts(entry, &facts.names, &nameKey_);
                break;
            case Key::Other:
                break;
        }
    }

    Facts facts;

  private:
    // "4e-9", "4 ns", "4;ns", or the reciprocal of a rate. Unknown where the numbers behind a key differ, as those
    // of "1,000" between commas do, or where two keys of a header do.
    void TakeInterval(const KeyedCells& entry, const KeyText& key) {
        std::optional<double> found;
        for (qsizetype i = 0; i < entry.values.size(); ++i) {
            const Cell cell = ReadCell(entry.values[i].toStdString(), style_);
            if (cell.kind != CellKind::Number) {
                break;
            }
            const std::optional<Unit> unit = UnitOf(cell, key, entry.values.mid(i + 1));
            const std::optional<double> interval = unit ? IntervalOf(cell, *unit, key.key) : std::nullopt;
            isUnclear_ = isUnclear_ || IsUnclear(entry.values[i], cell) || (i > 0 && !IsSame(found, interval));
            found = i == 0 ? interval : found;
        }
        isUnclear_ = isUnclear_ || (found && facts.interval && !IsSame(found, facts.interval));
        facts.interval = isUnclear_ ? std::nullopt : facts.interval ? facts.interval : found;
    }

    // Its mark is not that of the samples, or may separate thousands.
    bool IsUnclear(const QString& text, const Cell& cell) const {
        const char mark = style_.decimalMark;
        return cell.isUnclear ? !text.contains(QLatin1Char(mark)) : cell.mark != 0 && cell.mark != mark;
    }

    static bool IsSame(const std::optional<double>& a, const std::optional<double>& b) {
        constexpr double kRounding = 0.01;
        return a.has_value() == b.has_value() && (!a || std::fabs(*a - *b) <= kRounding * *a);
    }

    // Behind the number, in the next cell, or in the key; nothing if a text stands there that is neither a unit nor
    // the next key.
    static std::optional<Unit> UnitOf(const Cell& cell, const KeyText& key, const QStringList& behind) {
        if (cell.unit != 0) {
            return Unit{cell.unit, 1.0};
        }
        const QString next = behind.value(0);
        const bool isWord = ReadCell(next.toStdString(), {}).kind == CellKind::Word;
        const std::optional<Unit> unit = isWord ? ReadUnit(next.toStdString()) : Unit{};
        const bool isKey = !unit && !behind.value(1).isEmpty();
        return key.unit ? key.unit : isKey ? Unit{} : unit;
    }

    static std::optional<double> IntervalOf(const Cell& cell, const Unit& unit, Key key) {
        const double value = cell.value * unit.scale;
        if (value <= 0.0 || !std::isfinite(1.0 / value)) {
            return std::nullopt;
        }
        if (IsSeconds(unit) || (unit.base == 0 && key == Key::Interval)) {
            return value;
        }
        const bool isRate = IsHertz(unit) || IsSampleRate(unit) || unit.base == 0;
        return isRate ? std::optional(1.0 / value) : std::nullopt;
    }

    // The first such key counts, and those of the same words below it.
    void TakeTexts(const KeyedCells& entry, std::vector<Facts::Entry>* texts, QString* first) {
        if (!texts->empty() && !entry.isBeside && entry.key != *first) {
            return;
        }
        *first = entry.key;
        for (qsizetype i = 0; i < entry.values.size(); ++i) {
            if (ReadCell(entry.values[i].toStdString(), {}).kind == CellKind::Word) {
                texts->push_back({entry.values[i], entry.column + static_cast<std::size_t>(i), entry.isBeside});
            }
        }
    }

    const NumberStyle style_;
    QString unitKey_;
    QString nameKey_;
    bool isUnclear_ = false;  // the interval
};

// "key = value" in one cell; the value may stand in the next one, and go on in those behind it.
std::optional<KeyedCells> KeyInCell(const QStringList& cells, qsizetype at, std::size_t column) {
    const auto pair = SplitPair(cells[at]);
    if (!pair) {
        return std::nullopt;
    }
    const Key key = ReadKey(pair->first).key;
    const bool goesOn = pair->second.isEmpty() || key == Key::Interval || key == Key::Rate;
    QStringList values = pair->second.isEmpty() ? QStringList() : QStringList(pair->second);
    for (qsizetype i = at + 1; goesOn && i < cells.size() && !SplitPair(cells[i]); ++i) {
        values += cells[i];
    }
    return KeyedCells{pair->first, values, column + 1};
}

void TakeHeaderLine(const QStringList& cells, FactReader* reader) {
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (const std::optional<KeyedCells> entry = KeyInCell(cells, i, static_cast<std::size_t>(i))) {
            reader->Take(*entry);
        } else if (i == 0) {
            static const QRegularExpression marks(QStringLiteral("^[#%;\\s]+"));
            QStringList values = cells.mid(1);
            values.removeAll(cells[0]);  // the same key for each channel
            reader->Take({QString(cells[0]).remove(marks), values, 1});
        }
    }
}

// In a row with samples each run of cells that are none may begin with a key.
void TakeBeside(const QStringList& cells, const std::vector<BlockColumn>& samples, FactReader* reader) {
    const auto isSample = [&samples](qsizetype i) {
        return std::ranges::find(samples, static_cast<std::size_t>(i), &BlockColumn::column) != samples.end();
    };
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (cells[i].isEmpty() || isSample(i)) {
            continue;
        }
        qsizetype end = i + 1;
        while (end < cells.size() && !isSample(end) && !cells[end].isEmpty()) {
            ++end;
        }
        reader->Take({cells[i], cells.mid(i + 1, end - i - 1), static_cast<std::size_t>(i) + 1, true});
        i = end;
    }
}

// A title with a number below it: "Increment" over 1e-6.
void TakeTitledNumber(const QString& title, const QString& number, FactReader* reader) {
    if (const Key key = ReadKey(title).key; key == Key::Interval || key == Key::Rate) {
        reader->Take({title, {number}});
    }
}

void TakeColumns(const QStringList& titles, const QStringList& below, FactReader* reader) {
    for (qsizetype i = 1; i < std::min(titles.size(), below.size()); ++i) {
        TakeTitledNumber(titles[i], below[i], reader);
    }
}

// The columns that hold samples, and the settings beside them.
std::pair<std::vector<BlockColumn>, std::vector<BlockColumn>> Divide(const Table& table, const TableBlock& block) {
    std::pair<std::vector<BlockColumn>, std::vector<BlockColumn>> columns;
    for (const BlockColumn& column : block.columns) {
        (IsSetting(table, block, column) ? columns.second : columns.first).push_back(column);
    }
    return columns;
}

}  // namespace

void Facts::TakeFrom(const Facts& other) {
    interval = interval ? interval : other.interval;
    timeUnit = timeUnit.isEmpty() ? other.timeUnit : timeUnit;
    names = names.empty() ? other.names : names;
    units = units.empty() ? other.units : units;
}

Facts FindFacts(const Table& table, const TableBlock& block, const Heading& heading) {
    FactReader reader(table.CellForm().numbers);
    const char separator = table.CellForm().separator;
    QStringList above;
    for (const Table::Line& line : table.Texts(block.headerLine, block.headerEnd - 1)) {
        const QStringList cells = KeyCells(line.text, separator);
        if (line.number != heading.lineWithoutKey) {
            TakeHeaderLine(cells, &reader);
        }
        TakeColumns(above, cells, &reader);
        above = cells;
    }
    const auto [samples, settings] = Divide(table, block);
    for (const Table::Line& line : table.Texts(block.firstLine, block.lastLine)) {
        TakeBeside(WordCells(line.text, separator, block.cells), samples, &reader);
    }
    for (const BlockColumn& column : settings) {
        const Title& title = heading.titles[column.column];
        const double value = table.Values(column.column)[column.firstValue];
        TakeTitledNumber(title.unit.isEmpty() ? title.name : QString(title.name + u" (" + title.unit + u')'),
                         QString::number(value, 'g', 17), &reader);
    }
    return std::move(reader.facts);
}

}  // namespace recording
