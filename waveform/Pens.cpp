#include "waveform/Pens.h"

#include <algorithm>
#include <optional>

#include "waveform/LineRules.h"
#include "waveform/Samples.h"

namespace {

// The record found at one of the positions, tried in order.
std::optional<Record> FindAt(RecordTable& table, std::initializer_list<float> positions) {
    for (const float x : positions) {
        if (const auto found = table.FindFirst(Nearest(x))) {
            return found;
        }
    }
    return std::nullopt;
}

// Each record takes the value for its own address: a table with gaps keeps them. False without one at the left end.
bool WriteLine(RecordTable& table, const LineEnds& line) {
    const int a1 = Nearest(line.x1);
    const int a2 = Nearest(line.x2);
    std::vector<Record> records;
    table.Read(RecordOrder::Address, records);
    const auto byAddress = [](const Record& record, int adr) { return record.Adr < adr; };
    auto at = std::lower_bound(records.begin(), records.end(), a1, byAddress);
    if (at == records.end() || at->Adr != a1) {
        return false;
    }
    if (a2 - a1 < 1) {
        table.Change(*at, Nearest(line.y1));
        return true;
    }
    for (; at != records.end() && at->Adr <= a2; ++at) {
        table.Change(*at, LineValue(line, at->Adr));
    }
    return true;
}

bool OnAxis(const EditorState& editor, float x) { return x >= 0.0F && x <= static_cast<float>(editor.Size->LastAdr); }

// The Delete pen leaves the first and the last address alone.
bool IsInner(const EditorState& editor, float x) {
    return NearestEven(x) >= 1.0 && NearestEven(x) < editor.Size->LastAdr;
}

TableResult DrawLine(EditorState& editor, EditorTables& tables, float x, float y) {
    if (!editor.LineActive) {
        editor.LineActive = true;
        editor.LineX1 = x;
        editor.LineY1 = y;
        editor.LineX2 = -1.0F;
        return {};
    }
    editor.LineActive = false;
    const LineEnds line = LeftToRight(editor.LineX1, editor.LineY1, x, y);
    editor.LineX1 = line.x1;
    editor.LineY1 = line.y1;
    editor.LineX2 = line.x2;
    editor.LineY2 = line.y2;
    const char* const name = Nearest(line.x1) == Nearest(line.x2) ? "sample" : "line";
    return tables.Change(tables.OnData1(name, editor.Target), *editor.Size,
                         [&line](RecordTable& table) { return WriteLine(table, line); });
}

// A point of the signal moves up or down, never sideways.
TableResult SetPoint(const EditorState& editor, EditorTables& tables, float x, float y) {
    return tables.Change(tables.OnData1("point", editor.Target), *editor.Size, [x, y](RecordTable& table) {
        const auto found = FindAt(table, {x});
        return found ? table.Change(*found, Nearest(y)) : table.Add(Nearest(x), Nearest(y));
    });
}

TableResult RemovePoint(const EditorState& editor, EditorTables& tables, float x) {
    return tables.Change(tables.OnData1("delete", editor.Target), *editor.Size, [x](RecordTable& table) {
        const auto found = FindAt(table, {x, x - 1.0F, x + 1.0F});
        return found && table.Remove(*found);
    });
}

TableResult ZeroSample(const EditorState& editor, EditorTables& tables, float x) {
    return tables.Change(tables.OnData1("delete", editor.Target), *editor.Size, [x](RecordTable& table) {
        const auto found = FindAt(table, {x});
        return found && table.Change(*found, 0);
    });
}

}  // namespace

TableResult PressPen(EditorState& editor, EditorTables& tables, float x, float y) {
    const bool memory = editor.Target == EditTarget::Memory;
    if (editor.SelectedPen == Pen::Draw && OnAxis(editor, x)) {
        return memory ? DrawLine(editor, tables, x, y) : SetPoint(editor, tables, x, y);
    }
    if (editor.SelectedPen == Pen::Delete && IsInner(editor, x)) {
        return memory ? ZeroSample(editor, tables, x) : RemovePoint(editor, tables, x);
    }
    return {};
}
