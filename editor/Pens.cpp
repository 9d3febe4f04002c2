#include "editor/Pens.h"

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
        table.Change({at->id, at->Adr, Nearest(line.y1)});
        return true;
    }
    for (; at != records.end() && at->Adr <= a2; ++at) {
        table.Change({at->id, at->Adr, LineValue(line, at->Adr)});
    }
    return true;
}

}  // namespace

void Pens::Press(float x, float y) {
    const bool memory = context_.front.Target() == EditTarget::Memory;
    const Pen pen = context_.front.SelectedPen();
    if (pen == Pen::Draw) {
        memory ? DrawLine(x, y) : SetPoint(x, y);
    } else if (pen == Pen::Delete && IsInner(x)) {
        memory ? ZeroSample(x) : RemovePoint(x);
    }
}

bool Pens::IsInner(float x) const { return NearestEven(x) >= 1.0 && NearestEven(x) < context_.front.Size().LastAdr; }

bool Pens::Edit(const std::function<bool(RecordTable& table)>& change) {
    bool found = false;
    const bool done = context_.tables.Change(
        context_.tables.DatabaseName, context_.front.Size(), [&](RecordTable& table) { found = change(table); },
        Telling::Box);
    if (done && !found) {
        return false;
    }
    context_.front.DrawEditor();
    return true;
}

void Pens::DrawLine(float x, float y) {
    EditorState& editor = context_.program.editor;
    if (x < 0.0F || x > static_cast<float>(context_.front.Size().LastAdr)) {
        return;
    }
    if (!editor.LineActive) {
        editor.LineActive = true;
        editor.LineX1 = x;
        editor.LineY1 = y;
        editor.LineX2 = -1.0F;
        return;
    }
    editor.LineActive = false;
    const LineEnds line = LeftToRight(editor.LineX1, editor.LineY1, x, y);
    editor.LineX1 = line.x1;
    editor.LineY1 = line.y1;
    editor.LineX2 = line.x2;
    editor.LineY2 = line.y2;
    if (!Edit([&line](RecordTable& table) { return WriteLine(table, line); })) {
        context_.view.ShowBand({});
    }
}

// A point of the signal moves up or down, never sideways.
void Pens::SetPoint(float x, float y) {
    if (x < 0.0F || x > static_cast<float>(context_.front.Size().LastAdr)) {
        return;
    }
    Edit([x, y](RecordTable& table) {
        if (const auto found = FindAt(table, {x})) {
            table.Change({found->id, found->Adr, Nearest(y)});
        } else {
            table.Add(Nearest(x), Nearest(y));
        }
        return true;
    });
}

void Pens::RemovePoint(float x) {
    Edit([x](RecordTable& table) {
        const auto found = FindAt(table, {x, x - 1.0F, x + 1.0F});
        return found && table.Remove(found->id);
    });
}

void Pens::ZeroSample(float x) {
    Edit([x](RecordTable& table) {
        const auto found = FindAt(table, {x});
        return found && table.Change({found->id, found->Adr, 0});
    });
}
