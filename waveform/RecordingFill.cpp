#include "waveform/RecordingFill.h"

#include <algorithm>
#include <limits>

#include "waveform/FormulaFill.h"

namespace {

using recording::AddressedSample;

constexpr char kStep[] = "open recording";

QString RefuseSample(const AddressedSample& sample, int lastAddress) {
    using Limits = std::numeric_limits<qint16>;
    if (sample.address < 0 || sample.address > lastAddress) {
        return QStringLiteral(
                   "Line %1 has the address %2, and the addresses go from 0 to %3. Choose the other size under "
                   "\"Memory\", "
                   "or take the file as a recording.")
            .arg(sample.line)
            .arg(sample.address)
            .arg(lastAddress);
    }
    if (sample.value < Limits::min() || sample.value > Limits::max()) {
        return QStringLiteral(
                   "Line %1 has the value %2, and a table holds -32768 to 32767. Correct it, or take the file as a "
                   "recording.")
            .arg(sample.line)
            .arg(sample.value);
    }
    return {};
}

// A memory has one sample at an address.
QString RefuseTwins(std::span<const AddressedSample> samples, int lastAddress) {
    std::vector<std::size_t> lines(static_cast<std::size_t>(lastAddress) + 1, 0);
    for (const AddressedSample& sample : samples) {
        std::size_t& line = lines[static_cast<std::size_t>(sample.address)];
        if (line != 0) {
            return QStringLiteral(
                       "Line %1 has the address %2 again, which stands in line %3. Correct it, or make the samples "
                       "points of the signal.")
                .arg(sample.line)
                .arg(sample.address)
                .arg(line);
        }
        line = sample.line;
    }
    return {};
}

// The pen pastes side by side.
QString RefuseGaps(std::span<const AddressedSample> samples) {
    if (samples.size() < 2) {
        return QStringLiteral("One sample alone can't be pasted. Put it over the whole memory.");
    }
    const auto next = [](const AddressedSample& one, const AddressedSample& other) {
        return other.address != one.address + 1;
    };
    const auto gap = std::ranges::adjacent_find(samples, next);
    return gap == samples.end() ? QString()
                                : QStringLiteral(
                                      "In line %1 the address is not that of the line before plus 1, so the samples "
                                      "can't be pasted. Put them over the whole memory, or make them points.")
                                      .arg(std::next(gap)->line);
}

}  // namespace

void TakeSamples(std::span<const qint16> samples, EditorState& editor) {
    std::ranges::copy(samples, editor.CopyBuffer.begin());
    editor.CopyStart = 0;
    editor.CopyEnd = static_cast<qint16>(samples.size() - 1);
}

TableResult RecordToMemory(const EditorState& editor, EditorTables& tables, std::span<const qint16> samples) {
    return FillMemory(editor, tables, {0, editor.Size->lastTableAddress}, samples, kStep);
}

TableResult RecordToSignal(const EditorState& editor, EditorTables& tables, std::span<const qint16> samples) {
    std::vector<Record> points;
    for (const qint16 sample : samples) {
        points.push_back({0, static_cast<qint16>(points.size()), sample});
    }
    return tables.Replace(tables.OnFileOf(EditTarget::Signal, kStep), *editor.Size, points);
}

QString RefuseAddressed(std::span<const AddressedSample> samples, RecordingUse use, const MemorySize& size) {
    const int last = use == RecordingUse::Signal ? size.LastAdr : size.lastTableAddress;
    for (const AddressedSample& sample : samples) {
        QString refusal = RefuseSample(sample, last);
        if (!refusal.isEmpty()) {
            return refusal;
        }
    }
    return use == RecordingUse::Paste    ? RefuseGaps(samples)
           : use == RecordingUse::Memory ? RefuseTwins(samples, last)
                                         : QString();
}

std::size_t AddressesIn(std::span<const AddressedSample> samples) {
    std::vector<int> addresses(samples.size());
    std::ranges::transform(samples, addresses.begin(), &AddressedSample::address);
    std::ranges::sort(addresses);
    return static_cast<std::size_t>(std::unique(addresses.begin(), addresses.end()) - addresses.begin());
}

TableResult ReplaceByAddressed(const EditorState& editor, EditorTables& tables, EditTarget target,
                               std::span<const AddressedSample> samples) {
    std::vector<Record> records(samples.size());
    std::ranges::transform(samples, records.begin(), [](const AddressedSample& sample) {
        return Record{0, static_cast<qint16>(sample.address), static_cast<qint16>(sample.value)};
    });
    return tables.Replace(tables.OnFileOf(target, kStep), *editor.Size, records);
}

std::vector<qint16> ValuesOf(std::span<const AddressedSample> samples) {
    std::vector<qint16> values(samples.size());
    std::ranges::transform(samples, values.begin(),
                           [](const AddressedSample& sample) { return static_cast<qint16>(sample.value); });
    return values;
}
