#include "recording/Header.h"

#include <QRegularExpression>
#include <algorithm>

#include "recording/Units.h"

namespace recording {
namespace {

enum class Key { Other, Interval, Rate, TimeUnit, Unit, Name };

struct KeyText {
    Key key = Key::Other;
    std::optional<Unit> unit;  // in brackets behind it
};

// "SampleInterval (ms)" as "sample interval".
QString Words(const QString& name) {
    static const QRegularExpression hump(QStringLiteral("([a-z])([A-Z])"));
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    return QString(name)
        .replace(hump, QStringLiteral("\\1 \\2"))
        .toLower()
        .replace(others, QStringLiteral(" "))
        .trimmed();
}

KeyText ReadKey(const QString& text) {
    static const std::pair<QRegularExpression, Key> keys[] = {
        {QRegularExpression(QStringLiteral(
             "\\b(sampl(e|ing)|time|t|x|h|horiz(ontal)?|horz|log(ging)?|scan|measure(ment)?|record(ing)?) "
             "?(interval|increment|incr|inc|step|period|spacing|resolution)\\b|^(interval|increment|dt|delta|delta t|"
             "deltat|sampl(e|ing) time|time per sample)$")),
         Key::Interval},
        {QRegularExpression(QStringLiteral("\\b(sampl(e|ing)|scan|acquisition|adc|data|log(ging)?) "
                                           "?(rate|frequency|freq|clock)\\b|^(fs|rate|samples per second)$")),
         Key::Rate},
        {QRegularExpression(QStringLiteral("^(horiz(ontal)?|horz|x|time|x axis) ?units?$")), Key::TimeUnit},
        {QRegularExpression(QStringLiteral("^((vert(ical)?|y|y axis|channel|signal) ?)?units?$")), Key::Unit},
        {QRegularExpression(QStringLiteral("^(source|channel|trace|signal|waveform|label|name|ch)( name| label)?$")),
         Key::Name}};
    const Title title = ReadTitle(text);
    const QString words = Words(title.name);
    for (const auto& [pattern, key] : keys) {
        if (pattern.match(words).hasMatch()) {
            return {key, ReadUnit(title.unit.toStdString())};
        }
    }
    return {};
}

// A key with the cells behind it.
struct Entry {
    QString key;
    QStringList values;
    std::size_t column = 0;  // of the first value
    bool isBeside = false;
};

class FactReader {
  public:
    explicit FactReader(const NumberStyle& style) : style_(style) {}

    void Take(const Entry& entry) {
        const KeyText key = ReadKey(entry.key);
        switch (key.key) {
            case Key::Interval:
                TakeInterval(entry, key, false);
                break;
            case Key::Rate:
                TakeInterval(entry, key, true);
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
    // "4e-9", "4 ns", "4;ns", or the reciprocal of a rate.
    void TakeInterval(const Entry& entry, const KeyText& key, bool isRate) {
        const Cell cell = ReadCell(entry.values.value(0).toStdString(), style_);
        if (facts.interval || cell.kind != CellKind::Number || cell.value <= 0.0) {
            return;
        }
        Unit unit{cell.unit, 1.0};
        if (cell.unit == 0) {
            unit = key.unit ? *key.unit : ReadUnit(entry.values.value(1).toStdString()).value_or(unit);
        }
        const double value = cell.value * unit.scale;
        if (isRate || IsHertz(unit) || IsSampleRate(unit)) {
            facts.interval = 1.0 / value;
        } else if (unit.base == 0 || IsSeconds(unit)) {
            facts.interval = value;
        }
    }

    // The first such key counts, and those of the same words below it.
    void TakeTexts(const Entry& entry, std::vector<Facts::Entry>* texts, QString* first) {
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
};

// "key = value" in one cell, its value perhaps in the next one.
std::optional<Entry> EntryInCell(const QStringList& cells, qsizetype at, std::size_t column) {
    static const QRegularExpression pair(QStringLiteral(R"(^[#%;\s]*([^=:]*[A-Za-z][^=:]*?)\s*[=:]\s*(.*)$)"));
    const auto match = pair.match(cells[at]);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString value = match.captured(2).trimmed();
    return Entry{match.captured(1), value.isEmpty() ? cells.mid(at + 1) : QStringList(value), column + 1};
}

void TakeHeaderLine(const QStringList& cells, FactReader* reader) {
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (const std::optional<Entry> entry = EntryInCell(cells, i, static_cast<std::size_t>(i))) {
            reader->Take(*entry);
        } else if (i == 0) {
            static const QRegularExpression marks(QStringLiteral("^[#%;\\s]+"));
            reader->Take({QString(cells[0]).remove(marks), cells.mid(1), 1});
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

// The columns that hold samples, and the settings beside them, which have a few numbers only.
std::pair<std::vector<BlockColumn>, std::vector<BlockColumn>> Divide(const TableBlock& block) {
    const std::size_t most = std::ranges::max(block.columns, {}, &BlockColumn::values).values;
    std::pair<std::vector<BlockColumn>, std::vector<BlockColumn>> columns;
    for (const BlockColumn& column : block.columns) {
        (2 * column.values >= most ? columns.first : columns.second).push_back(column);
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
        TakeHeaderLine(cells, &reader);
        TakeColumns(above, cells, &reader);
        above = cells;
    }
    const auto [samples, settings] = Divide(block);
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
