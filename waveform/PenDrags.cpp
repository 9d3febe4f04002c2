#include "waveform/PenDrags.h"

#include <algorithm>

#include "waveform/CopyBuffer.h"
#include "waveform/Samples.h"

namespace {

constexpr int kShortestCopy = 3;  // addresses; a shorter drag takes no samples

qint16 SampleAt(std::span<const qint16> memory, double x) {
    const double last = static_cast<double>(memory.size()) - 1.0;
    return memory[static_cast<std::size_t>(NearestEven(std::clamp(x, 0.0, last)))];
}

}  // namespace

void StretchLine(EditorState& editor, float x, float y) {
    editor.LineX2 = x;
    editor.LineY2 = y;
}

std::vector<QLineF> LineBand(const EditorState& editor, std::span<const qint16> memory) {
    std::vector<QLineF> band;
    if (editor.LineX1 > 0.0F) {
        band.emplace_back(editor.LineX1, SampleAt(memory, editor.LineX1), editor.LineX1, editor.LineY1);
    }
    if (editor.LineX2 < static_cast<float>(editor.Size->LastAdr)) {
        band.emplace_back(editor.LineX2, editor.LineY2, editor.LineX2, SampleAt(memory, editor.LineX2));
    }
    band.emplace_back(editor.LineX1, editor.LineY1, editor.LineX2, editor.LineY2);
    return band;
}

bool DropUnderWay(EditorState& editor) {
    const bool dragging = editor.DragSincePress != EditorState::Drag::None;
    const bool dropped = editor.LineActive || dragging;
    if (editor.DragSincePress == EditorState::Drag::Copy) {
        editor.CopyStart = editor.FormerCopyStart;
        editor.CopyEnd = editor.FormerCopyEnd;
    }
    editor.LineActive = false;
    editor.CopyDragging = false;
    editor.PasteDragging = false;
    editor.DragSincePress = EditorState::Drag::None;
    editor.DragsHeld = editor.DragsHeld || dragging;
    return dropped;
}

DragStep NextDragStep(EditorState& editor, int buttons) {
    if ((buttons & 1) == 0) {
        editor.DragsHeld = false;
        editor.DragSincePress = EditorState::Drag::None;
    }
    if (editor.DragsHeld) {
        return DragStep::None;
    }
    const bool leftDown = buttons == 1;
    if (leftDown && editor.SelectedPen == Pen::Copy && editor.Target == EditTarget::Memory) {
        return DragStep::Copy;
    }
    if (leftDown && editor.SelectedPen == Pen::Paste) {
        return DragStep::Paste;
    }
    if (editor.PasteDragging) {
        return DragStep::EndPaste;
    }
    return editor.CopyDragging ? DragStep::EndCopy : DragStep::None;
}

std::optional<DragBox> CopyStep(EditorState& editor, float x) {
    if (!editor.CopyDragging) {
        editor.CopyDragging = true;
        if (editor.DragSincePress != EditorState::Drag::Copy) {
            editor.DragSincePress = EditorState::Drag::Copy;
            editor.FormerCopyStart = editor.CopyStart;
            editor.FormerCopyEnd = editor.CopyEnd;
        }
        editor.CopyStart = Nearest(x);
        editor.CopyEnd = -1;
        return std::nullopt;
    }
    const double to = editor.CopyEnd == -1 ? static_cast<double>(x) : NearestEven(x);
    editor.CopyEnd = Nearest(x);
    return DragBox{editor.CopyStart, to};
}

bool EndCopy(EditorState& editor, std::span<const qint16> memory, float x) {
    editor.CopyDragging = false;
    editor.CopyEnd = Nearest(x);
    if (CopiedDistance(editor) < kShortestCopy) {
        return false;
    }
    const int step = editor.CopyStart < editor.CopyEnd ? 1 : -1;
    int address = editor.CopyStart;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(CopiedDistance(editor)); ++i) {
        editor.CopyBuffer[i] = SampleAt(memory, address);
        address += step;
    }
    return true;
}

DragBox PasteStep(EditorState& editor, float x) {
    editor.PasteDragging = true;
    editor.DragSincePress = EditorState::Drag::Paste;
    editor.PasteAt = Nearest(x);
    return {editor.PasteAt, static_cast<double>(editor.PasteAt + CopiedDistance(editor))};
}

TableResult EndPaste(EditorState& editor, EditorTables& tables) {
    editor.PasteDragging = false;
    const int last = std::min(editor.PasteAt + CopiedDistance(editor), editor.Size->LastAdr);
    return tables.Change(tables.OnData1("paste", editor.Target), *editor.Size, [&editor, last](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        std::vector<const Record*> recordAt(static_cast<std::size_t>(last) + 1);
        for (const Record& record : records) {
            if (record.Adr >= editor.PasteAt && record.Adr <= last) {
                const Record*& held = recordAt[static_cast<std::size_t>(record.Adr)];
                held = held == nullptr ? &record : held;  // the first of those that share an address
            }
        }
        for (int a = editor.PasteAt; a <= last; ++a) {
            const auto adr = static_cast<qint16>(a);
            const qint16 value = editor.CopyBuffer[static_cast<std::size_t>(a - editor.PasteAt)];
            const Record* const found = recordAt[static_cast<std::size_t>(a)];
            found != nullptr ? table.Change(*found, value) : table.Add(adr, value);
        }
        return true;
    });
}
