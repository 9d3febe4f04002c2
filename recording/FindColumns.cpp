// The columns that a user names.

#include <QStringList>
#include <algorithm>

#include "recording/Recording.h"

namespace recording {
namespace {

std::vector<const Block*> InOrder(const Recording& recording, std::size_t preferred) {
    std::vector<const Block*> blocks{&recording.blocks.at(preferred)};
    for (const Block& block : recording.blocks) {
        if (&block != blocks.front()) {
            blocks.push_back(&block);
        }
    }
    return blocks;
}

bool IsTitled(const Column& column, const QString& text) {
    return !text.isEmpty() && (column.name.compare(text, Qt::CaseInsensitive) == 0 ||
                               (!column.name.isEmpty() && column.Title().compare(text, Qt::CaseInsensitive) == 0));
}

QString Listed(const Block& block) {
    QStringList titles;
    for (const Column& column : block.columns) {
        titles += QString(QString::number(column.number) + (column.name.isEmpty() ? QString() : u' ' + column.Title()));
    }
    return titles.join(QStringLiteral(", "));
}

class Search {
  public:
    Search(const Recording& recording, std::size_t preferred) : blocks_(InOrder(recording, preferred)) {}

    // Null with a sentence if there is none, or more than one in a block.
    const Column* One(const QString& text, QString* fault) const {
        bool isNumber = false;
        const uint number = text.toUInt(&isNumber);
        for (const Block* const block : blocks_) {
            const auto means = [&](const Column& column) {
                return isNumber ? column.number == number : IsTitled(column, text);
            };
            if (std::ranges::count_if(block->columns, means) > 1) {
                *fault = QStringLiteral("Several columns are titled \"%1\". Choose one by its number: %2.")
                             .arg(text, Listed(*block));
                return nullptr;
            }
            if (const auto column = std::ranges::find_if(block->columns, means); column != block->columns.end()) {
                return &*column;
            }
        }
        *fault = (isNumber ? QStringLiteral("There are no numbers in a column %1. Choose one of these: %2.")
                           : QStringLiteral("There is no column titled \"%1\". Choose one of these: %2."))
                     .arg(text, Listed(*blocks_.front()));
        return nullptr;
    }

    // One column, or those on either side of a comma; a title may have commas of its own.
    std::vector<const Column*> All(const QString& text, QString* fault) const {
        if (const Column* const column = One(text.trimmed(), fault)) {
            return {column};
        }
        for (qsizetype comma = text.indexOf(u','); comma >= 0; comma = text.indexOf(u',', comma + 1)) {
            const Column* const first = One(text.first(comma).trimmed(), fault);
            std::vector<const Column*> others;
            if (first != nullptr && !(others = All(text.sliced(comma + 1), fault)).empty()) {
                others.insert(others.begin(), first);
                return others;
            }
        }
        return {};
    }

  private:
    std::vector<const Block*> blocks_;
};

}  // namespace

std::vector<const Column*> FindColumns(const Recording& recording, std::size_t preferred, const QString& text,
                                       QString* fault) {
    std::vector<const Column*> columns = Search(recording, preferred).All(text, fault);
    for (const Column* const column : columns) {
        if (!column->fault.isEmpty()) {
            *fault = column->fault;
            return {};
        }
    }
    const QStringList names = text.split(u',');
    if (columns.empty() && std::ranges::any_of(names, [](const QString& name) { return name.trimmed().isEmpty(); })) {
        *fault = QStringLiteral("A column is missing beside a comma in \"%1\". Name columns as in \"2,3\".").arg(text);
    }
    if (!columns.empty()) {
        fault->clear();
    }
    return columns;
}

}  // namespace recording
