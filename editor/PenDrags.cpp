#include "editor/PenDrags.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "waveform/Samples.h"

namespace {

constexpr int kShortestCopy = 3;  // addresses; a shorter drag takes no samples

}  // namespace

void PenDrags::Move(int buttons, float x, float y) {
    const EditorState& editor = context_.program.editor;
    if (editor.LineActive) {
        StretchLine(x, y);
    }
    const Pen pen = context_.front.SelectedPen();
    const bool leftDown = buttons == 1;
    if (leftDown && pen == Pen::Copy && context_.front.Target() == EditTarget::Memory) {
        CopyStep(x);
    } else if (leftDown && pen == Pen::Paste) {
        PasteStep(x);
    } else if (editor.PasteDragging) {
        EndPaste();
    } else if (editor.CopyDragging) {
        EndCopy(x);
    }
}

qint16 PenDrags::SampleAt(double x) const {
    const std::span<const qint16> memory = context_.front.Size().samples(context_.program.memories);
    const double last = static_cast<double>(memory.size()) - 1.0;
    return memory[static_cast<std::size_t>(NearestEven(std::clamp(x, 0.0, last)))];
}

// The line, and the risers where it will leave and rejoin the present curve.
void PenDrags::StretchLine(float x, float y) {
    EditorState& editor = context_.program.editor;
    editor.LineX2 = x;
    editor.LineY2 = y;
    std::vector<QLineF> band;
    if (editor.LineX1 > 0.0F) {
        band.emplace_back(editor.LineX1, SampleAt(editor.LineX1), editor.LineX1, editor.LineY1);
    }
    if (editor.LineX2 < static_cast<float>(context_.front.Size().LastAdr)) {
        band.emplace_back(editor.LineX2, editor.LineY2, editor.LineX2, SampleAt(editor.LineX2));
    }
    band.emplace_back(editor.LineX1, editor.LineY1, editor.LineX2, editor.LineY2);
    context_.view.ShowBand(band);
}

int PenDrags::BufferDistance() const {
    return std::abs(context_.program.editor.CopyEnd - context_.program.editor.CopyStart);
}

void PenDrags::CopyStep(float x) {
    EditorState& editor = context_.program.editor;
    if (!editor.CopyDragging) {
        editor.CopyDragging = true;
        editor.CopyStart = Nearest(x);
        editor.CopyEnd = -1;
        context_.view.ForgetDragBox();  // one that a drag too short has left stays until the redraw
        return;
    }
    const double to = editor.CopyEnd == -1 ? static_cast<double>(x) : NearestEven(x);
    editor.CopyEnd = Nearest(x);
    context_.view.ShowDragBox(editor.CopyStart, to);
}

// From right to left the stretch is taken mirrored.
void PenDrags::EndCopy(float x) {
    EditorState& editor = context_.program.editor;
    editor.CopyDragging = false;
    editor.CopyEnd = Nearest(x);
    if (BufferDistance() < kShortestCopy) {
        return;
    }
    const int step = editor.CopyStart < editor.CopyEnd ? 1 : -1;
    int address = editor.CopyStart;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(BufferDistance()); ++i) {
        editor.CopyBuffer[i] = SampleAt(address);
        address += step;
    }
    editor.EditorRedrawPending = true;
}

void PenDrags::PasteStep(float x) {
    EditorState& editor = context_.program.editor;
    editor.PasteAt = Nearest(x);
    context_.view.ShowDragBox(editor.PasteAt, editor.PasteAt + BufferDistance());
    editor.PasteDragging = true;
}

// What would lie beyond the end of the axis is dropped.
void PenDrags::EndPaste() {
    EditorState& editor = context_.program.editor;
    editor.PasteDragging = false;
    context_.desktop.BusyOn();
    const int last = std::min(editor.PasteAt + BufferDistance(), context_.front.Size().LastAdr);
    const auto paste = [&editor, last](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        std::map<int, qint64> idOf;
        for (const Record& record : records) {
            idOf.emplace(record.Adr, record.id);  // the first of those that share an address
        }
        for (int a = editor.PasteAt; a <= last; ++a) {
            const auto adr = static_cast<qint16>(a);
            const qint16 value = editor.CopyBuffer[static_cast<std::size_t>(a - editor.PasteAt)];
            const auto found = idOf.find(a);
            found != idOf.end() ? table.Change({found->second, adr, value}) : table.Add(adr, value);
        }
    };
    context_.tables.Change(context_.tables.DatabaseName, context_.front.Size(), paste, Telling::Box);
    context_.desktop.BusyOff();
    editor.EditorRedrawPending = true;
}
