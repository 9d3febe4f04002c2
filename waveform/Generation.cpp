#include "waveform/Generation.h"

#include <algorithm>
#include <array>
#include <utility>

#include "waveform/LinearMemory.h"

namespace {

// Changed if there is something to interpolate.
TableResult Interpolate(const EditorState& editor, const EditorTables& tables, std::span<qint16> axis) {
    if (editor.SelectedInterpolation == Interpolation::Spline) {
        std::copy_n(editor.ArbSignal.begin(), axis.size(), axis.begin());
        return {.changed = true};
    }
    std::vector<Record> points;
    TableResult result = EditorTables::Read(tables.DatabaseName, *editor.Size, points);
    GenerateLinearMemory(points, axis);
    result.changed = !points.empty();
    return result;
}

TableResult WriteMemoryTable(const EditorState& editor, EditorTables& tables, std::span<const qint16> samples,
                             std::span<const qint16> former) {
    std::vector<Record> records;
    for (int a = 0; a <= editor.Size->lastTableAddress; ++a) {
        records.push_back({0, static_cast<qint16>(a), samples[static_cast<std::size_t>(a)]});
    }
    Edit edit = tables.OnFileOf(EditTarget::Memory, "generate memory data");
    if (const int last = editor.Size->LastAdr; last > editor.Size->lastTableAddress) {
        const auto at = static_cast<std::size_t>(last);
        edit.elements.push_back({last, former[at], samples[at]});
    }
    return tables.Replace(std::move(edit), *editor.Size, records);
}

}  // namespace

TableResult ClearTable(const EditorState& editor, EditorTables& tables) {
    if (editor.Target == EditTarget::Signal) {
        const std::array<Record, 2> flat{Record{0, 0, 0}, Record{0, static_cast<qint16>(editor.Size->LastAdr), 0}};
        return tables.Replace(tables.OnFileOf(editor.Target, "delete signal"), *editor.Size, flat);
    }
    return tables.Change(tables.OnFileOf(editor.Target, "delete memory"), *editor.Size, [](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        for (const Record& record : records) {
            table.Change(record, 0);
        }
        return true;
    });
}

TableResult GenerateMemory(const EditorState& editor, EditorTables& tables, ArbMemories& memories) {
    const std::span<qint16> memory = editor.Size->samples(memories);
    std::vector<qint16> samples(memory.begin(), memory.end());
    const std::span<qint16> axis = std::span(samples).first(static_cast<std::size_t>(editor.Size->LastAdr) + 1);
    TableResult result = Interpolate(editor, tables, axis);
    if (result.changed) {
        result = WriteMemoryTable(editor, tables, samples, memory);
    }
    if (result.changed) {  // the array takes the new samples only if the file does
        std::copy(samples.begin(), samples.end(), memory.begin());
    }
    return result;
}
