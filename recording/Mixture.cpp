#include "recording/Mixture.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <span>

#include "recording/Recording.h"

namespace recording {
namespace {

constexpr qsizetype kMostChannels = 16;

// The numbers in a column that tells the channel of each row, if they change back; else nothing.
QStringList MixedNumbers(const Table& table, const BlockColumn& column) {
    const std::span<const double> values =
        std::span(table.Values(column.column)).subspan(column.firstValue, column.values);
    QStringList numbers;
    if (column.values != column.rows || column.hasStamps || std::ranges::is_sorted(values)) {
        return {};
    }
    for (const double value : values) {
        if (const QString number = QString::number(value); !numbers.contains(number)) {
            numbers += number;
        }
        if (value != std::trunc(value) || numbers.size() > kMostChannels) {
            return {};
        }
    }
    return numbers;
}

// The same for names; where no time stands, they need not change back, as nothing else tells where a channel begins.
QStringList MixedNames(const Table& table, const TableBlock& block, std::size_t column, bool hasAxis) {
    QStringList names;
    QString last;
    bool changesBack = false;
    for (const Table::Line& line : table.Texts(block.firstLine, block.lastLine)) {
        const QString name =
            WordCells(line.text, table.CellForm().separator, block.cells).value(static_cast<qsizetype>(column));
        changesBack = changesBack || (name != last && names.contains(name));
        if (name.isEmpty()) {
            continue;
        }
        names += names.contains(name) ? QStringList() : QStringList(name);
        last = name;
        if (names.size() > kMostChannels) {
            return {};
        }
    }
    return changesBack || !hasAxis ? names : QStringList();
}

bool IsAxis(const BlockColumn& column, const Heading& heading) {
    const Meaning meaning = heading.titles[column.column].Means();
    return column.hasStamps || meaning == Meaning::Time || meaning == Meaning::MaybeTime || meaning == Meaning::Index;
}

}  // namespace

QString FaultOfMixture(const Table& table, const TableBlock& block, const Heading& heading) {
    const bool hasAxis =
        std::ranges::any_of(block.columns, [&](const BlockColumn& column) { return IsAxis(column, heading); });
    for (std::size_t i = 0; i < std::min(block.cells, heading.titles.size()); ++i) {
        const Title& title = heading.titles[i];
        const auto column = std::ranges::find(block.columns, i, &BlockColumn::column);
        const bool isNumber = column != block.columns.end();
        const bool isSensor = !isNumber && title.name.compare(u"sensor", Qt::CaseInsensitive) == 0;
        const bool hasSamples = std::ranges::any_of(
            block.columns, [&](const BlockColumn& other) { return other.column != i && !IsAxis(other, heading); });
        if ((title.Means() != Meaning::WhichChannel && !isSensor) || !hasSamples) {
            continue;
        }
        const QStringList channels = isNumber ? MixedNumbers(table, *column) : MixedNames(table, block, i, hasAxis);
        if (channels.size() > 1) {
            return QStringLiteral(
                       "Several channels stand in one column, one below the other, as %1 tells (%2). Save each channel "
                       "in a column or block of its own, or choose the columns by their numbers.")
                .arg(NameOfColumn(i + 1, title.name), channels.join(QStringLiteral(", ")));
        }
    }
    return {};
}

}  // namespace recording
