#include <QBuffer>
#include <QStringEncoder>
#include <algorithm>
#include <cmath>
#include <vector>

#include "Fuzz.h"
#include "recording/Recording.h"
#include "recording/Resample.h"

namespace {

using recording::Block;
using recording::Choice;
using recording::Column;
using recording::Outcome;

// Gives a few bytes at a time, so that lines and their ends fall apart anywhere.
class Dribble : public QBuffer {
  public:
    using QBuffer::QBuffer;

  protected:
    qint64 readData(char* data, qint64 most) override { return QBuffer::readData(data, std::min<qint64>(most, 3)); }
};

template <typename Device = QBuffer>
Outcome Read(QByteArray text, const Choice& choice) {
    Device device(&text);
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    return recording::Read(device, choice);
}

bool SameColumn(const Column& one, const Column& other) {
    return one.number == other.number && one.name == other.name && one.unit == other.unit && one.role == other.role &&
           one.fault == other.fault && std::ranges::equal(one.values, other.values) &&
           one.timing.interval == other.timing.interval;
}

bool Same(const Outcome& one, const Outcome& other) {
    if (!one.recording || !other.recording) {
        return one.fault == other.fault && one.recording.has_value() == other.recording.has_value();
    }
    return std::ranges::equal(one.recording->blocks, other.recording->blocks, [](const Block& a, const Block& b) {
        return a.firstLine == b.firstLine && a.rows == b.rows && std::ranges::equal(a.columns, b.columns, SameColumn);
    });
}

void RequireResampled(const Column& column) {
    for (const std::size_t addresses : {std::size_t{1}, std::size_t{7}, std::size_t{300}}) {
        const std::vector<double> samples = recording::Resample(column.values, column.timing.times, addresses);
        Require(samples.size() == addresses, "a sample for each address");
        const double slack = 1e-9 * std::max(std::fabs(column.lowest), std::fabs(column.highest));
        Require(std::ranges::all_of(
                    samples,
                    [&](double sample) { return sample >= column.lowest - slack && sample <= column.highest + slack; }),
                "samples lie within the values");
        const std::vector<double> spread = recording::Spread(samples, 1.0, 32767.0);
        Require(spread.empty() || (std::ranges::min(spread) == 1.0 && std::ranges::max(spread) == 32767.0),
                "a spread reaches both ends");
    }
}

void RequireValues(const Column& column, const Block& block) {
    Require(column.values.size() >= 2, "a column that can be taken has two values at least");
    Require(column.values.size() + column.rowsLeftOut == block.rows, "the other rows are counted");
    Require(column.firstRow + column.values.size() <= block.rows, "its rows are rows of the block");
    Require(std::ranges::all_of(column.values, [](double value) { return std::isfinite(value); }), "values are finite");
    Require(column.lowest == std::ranges::min(column.values) && column.highest == std::ranges::max(column.values),
            "lowest and highest are among the values");
    const recording::Timing& timing = column.timing;
    Require(!timing.interval || (*timing.interval > 0.0 && timing.times.empty()), "an interval is of even steps");
    Require(
        timing.times.empty() || (timing.times.size() == column.values.size() && std::ranges::is_sorted(timing.times)),
        "there is a time for each value, and it never falls");
    RequireResampled(column);
}

void RequireBlock(const Block& block, std::size_t lines) {
    Require(block.rows >= 2 && block.rows <= lines, "a block has rows, each in a line of its own");
    Require(block.firstLine >= 1 && block.firstLine < block.lastLine && block.lastLine <= lines,
            "in lines of the file");
    std::size_t last = 0;
    for (const Column& column : block.columns) {
        Require(column.number > last, "columns stand in their order");
        Require(column.firstLine >= block.firstLine && column.lastLine <= block.lastLine, "a column is in its block");
        Require(column.fault.isEmpty() || (column.values.empty() && column.fault.endsWith(u'.')),
                "what cannot be taken has a sentence");
        if (column.fault.isEmpty()) {
            RequireValues(column, block);
        }
        last = column.number;
    }
}

// Written plainly, the values read as they were. The mark is named: 1.002 beside 1100 alone could be either.
void RequireRoundTrip(const Column& column) {
    QByteArray plain;
    for (const double value : column.values) {
        plain += "0;" + QByteArray::number(value, 'g', 17) + "\n";
    }
    const Outcome again = Read(plain, {.decimalMark = '.', .byNumber = true});
    Require(again.recording && again.recording->blocks.size() == 1 &&
                std::ranges::equal(again.recording->blocks[0].columns.at(1).values, column.values),
            "values written with 17 digits come back");
}

void RequireFound(const recording::Recording& recording) {
    for (const Block& block : recording.blocks) {
        for (const Column& column : block.columns) {
            QString fault;
            const auto found = FindColumns(recording, column.block, QString::number(column.number), &fault);
            Require(found.size() == (column.fault.isEmpty() ? 1U : 0U) && fault == column.fault,
                    "a column by its number");
            if (column.fault.isEmpty()) {
                Require(found[0] == &column, "and no other one");
                RequireRoundTrip(column);
            }
        }
    }
}

void RequireOutcome(const Outcome& outcome, std::size_t lines) {
    Require(outcome.recording.has_value() == outcome.fault.isEmpty(), "either a recording or a sentence");
    Require(outcome.recording || outcome.fault.endsWith(u'.'), "a sentence to its end");
    if (!outcome.recording) {
        return;
    }
    const recording::Recording& recording = *outcome.recording;
    const bool isAddressed = !recording.addressed.empty() || !recording.addressedFault.isEmpty();
    Require(recording.longest < recording.blocks.size() || (recording.blocks.empty() && isAddressed),
            "a longest block");
    std::size_t behind = 0;
    for (const Block& block : recording.blocks) {
        Require(block.firstLine > behind, "blocks stand below each other");
        RequireBlock(block, lines);
        behind = block.lastLine;
    }
    RequireFound(recording);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QByteArray text = BytesOf(data, size);
    const auto lines = static_cast<std::size_t>(1 + text.count('\n') + text.count('\r'));
    for (const Choice& choice :
         {Choice{}, Choice{.byNumber = true}, Choice{.separator = ' '}, Choice{.decimalMark = ','}}) {
        const Outcome outcome = Read(text, choice);
        RequireOutcome(outcome, lines);
        Require(Same(Read<Dribble>(text, choice), outcome), "pieces make no difference");
        const bool isPlain = !text.contains('\0') && !text.startsWith("\xEF\xBB\xBF") && text.isValidUtf8();
        if (isPlain && !text.contains('\r')) {
            Require(Same(Read(QByteArray(text).replace('\n', "\r\n"), choice), outcome), "line ends read alike");
        }
        if (isPlain && !text.startsWith("\xFE\xFF")) {
            QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
            const QByteArray wide = encoder(QString::fromUtf8(text));
            Require(Same(Read(wide, choice), outcome), "UTF-16 reads alike");
        }
    }
    return 0;
}
