#include "simulator/TraceRecording.h"

#include <QFile>
#include <QStringList>
#include <algorithm>

#include "recording/Recording.h"
#include "recording/Units.h"

namespace sim {
namespace {

using recording::Block;
using recording::Column;
using recording::Recording;
using Pair = std::array<const Column*, 2>;

template <typename Value>
std::optional<char> Named(const std::string& name, const Value& names) {
    for (const auto& [known, meaning] : names) {
        if (name == known) {
            return meaning;
        }
    }
    return std::nullopt;
}

recording::Choice ChoiceOf(const RecordingChoice& choice) {
    constexpr std::array<std::pair<const char*, char>, 5> kSeparators{
        {{"tab", '\t'}, {"semicolon", ';'}, {"comma", ','}, {"bar", '|'}, {"blank", ' '}}};
    constexpr std::array<std::pair<const char*, char>, 2> kMarks{{{"point", '.'}, {"comma", ','}}};
    const QStringList columns = QString::fromStdString(choice.columns).split(u',');
    return {.separator = Named(choice.separator, kSeparators),
            .decimalMark = Named(choice.decimal, kMarks),
            .byNumber = !choice.columns.empty() && std::ranges::all_of(columns, [](const QString& column) {
                bool isNumber = false;
                column.toUInt(&isNumber);
                return isNumber;
            })};
}

// The first two channels of the block. Where it has one, another block of as many rows has the other.
Pair DefaultPair(const Recording& recording, std::size_t block, bool mayLeaveBlock) {
    const std::vector<const Column*> channels = recording.blocks[block].Channels();
    if (channels.empty()) {
        return {};
    }
    const Column* second = channels[channels.size() > 1 ? 1 : 0];
    for (std::size_t i = block + 1; mayLeaveBlock && channels.size() == 1 && i < recording.blocks.size(); ++i) {
        const std::vector<const Column*> others = recording.blocks[i].Channels();
        if (others.size() == 1 && recording.blocks[i].rows == recording.blocks[block].rows) {
            second = others.front();
            break;
        }
    }
    return {channels.front(), second};
}

Pair ChosenPair(const Recording& recording, const RecordingChoice& choice, QString* fault) {
    const std::size_t block = choice.block > 0 ? choice.block - 1 : recording.longest;
    if (recording.blocks.empty()) {
        *fault = QStringLiteral(
            "The file has one row of numbers only, and a recording has two at least. Choose another "
            "file.");
        return {};
    }
    if (block >= recording.blocks.size()) {
        *fault = QStringLiteral("The file has %1 blocks of numbers and no block %2. Choose another one.")
                     .arg(recording.blocks.size())
                     .arg(choice.block);
        return {};
    }
    Pair pair = DefaultPair(recording, block, choice.block == 0);
    if (!choice.columns.empty()) {
        const auto columns = recording::FindColumns(recording, block, QString::fromStdString(choice.columns), fault);
        if (columns.size() > 2) {
            *fault =
                QStringLiteral("These are %1 columns, and there are two channels. Choose two.").arg(columns.size());
        }
        pair = columns.empty() ? Pair{} : Pair{columns.front(), columns.back()};
    } else if (pair[0] == nullptr) {
        *fault = QStringLiteral("No column looks like a channel. Choose one by its number.");
    }
    for (const Column* const column : pair) {
        if (fault->isEmpty() && column != nullptr) {
            *fault = column->fault;
        }
    }
    return pair;
}

// The values of a column that are served.
struct Served {
    std::span<const double> values;
    std::span<const double> times;
    std::size_t leftOut = 0;  // rows of the block
};

// Side by side the channels have the rows that both fill; else they end where the shorter one does.
std::array<Served, 2> ServedOf(const Recording& recording, const Pair& pair) {
    const bool areSideBySide = pair[0]->block == pair[1]->block;
    std::size_t begin = 0;
    std::size_t end = std::min(pair[0]->values.size(), pair[1]->values.size());
    if (areSideBySide) {
        begin = std::max(pair[0]->firstRow, pair[1]->firstRow);
        end = std::min(pair[0]->firstRow + pair[0]->values.size(), pair[1]->firstRow + pair[1]->values.size());
    }
    std::array<Served, 2> served;
    for (std::size_t i = 0; i < pair.size() && begin < end; ++i) {
        const std::size_t from = areSideBySide ? begin - pair[i]->firstRow : 0;
        const std::span<const double> times = pair[i]->timing.times;
        served[i] = {pair[i]->values.subspan(from, end - begin),
                     times.empty() ? times : times.subspan(from, end - begin),
                     recording.blocks[pair[i]->block].rows - (end - begin)};
    }
    return served;
}

std::string IntervalText(const recording::Timing& timing, std::size_t rows) {
    const auto seconds = [](double value) { return recording::WithPrefix(value, QStringLiteral("s")).toStdString(); };
    if (timing.interval) {
        return "every " + seconds(*timing.interval) + ", " + seconds(*timing.interval * static_cast<double>(rows)) +
               " in all";
    }
    if (!timing.times.empty()) {
        return "in uneven steps" + (timing.duration ? ", " + seconds(*timing.duration) + " in all" : std::string());
    }
    return "interval unknown";
}

std::string OriginOf(const Recording& recording, const Column& column, const Served& served, const std::string& path) {
    std::string text = path + ", " + column.Title().toStdString();
    if (!column.name.isEmpty()) {
        text += ", column " + std::to_string(column.number);
    }
    if (recording.blocks.size() > 1) {
        text += ", block " + std::to_string(column.block + 1) + " of " + std::to_string(recording.blocks.size());
    }
    text += ": " + std::to_string(served.values.size()) + " rows of lines " + std::to_string(column.firstLine) +
            " to " + std::to_string(column.lastLine) + ", " + IntervalText(column.timing, served.values.size());
    return text + (served.leftOut > 0 ? ", " + std::to_string(served.leftOut) + " rows left out" : "");
}

}  // namespace

std::optional<RecordedTraces> LoadTraces(const RecordingChoice& choice, std::string* error) {
    QFile file(QString::fromStdString(choice.path));
    if (!file.open(QIODevice::ReadOnly)) {
        *error = choice.path + ": " + file.errorString().toStdString();
        return std::nullopt;
    }
    const recording::Outcome outcome = recording::Read(file, ChoiceOf(choice));
    QString fault = outcome.fault;
    const Pair pair = outcome.recording ? ChosenPair(*outcome.recording, choice, &fault) : Pair{};
    const std::array<Served, 2> served = fault.isEmpty() ? ServedOf(*outcome.recording, pair) : std::array<Served, 2>();
    if (fault.isEmpty() && served[0].values.size() < 2) {
        fault = QStringLiteral("The two columns share no two rows. Choose others, or one alone.");
    }
    if (!fault.isEmpty()) {
        *error = choice.path + ": " + fault.toStdString();
        return std::nullopt;
    }
    RecordedTraces traces;
    for (std::size_t i = 0; i < pair.size(); ++i) {
        traces.channels[i] = MakeTrace(served[i].values, served[i].times);
        traces.origins[i] = OriginOf(*outcome.recording, *pair[i], served[i], choice.path);
        traces.origins[i] += traces.channels[i] == Trace{} ? ", flat: served as zeros" : "";
    }
    return traces;
}

}  // namespace sim
