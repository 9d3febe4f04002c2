#include "waveform/Redraw.h"

#include "waveform/Spline.h"
#include "waveform/ViewRules.h"

namespace {

constexpr std::size_t kFewestForSpline = 3;

// Of a signal the first point stays out.
void CopyToMemory(std::span<const Record> records, const EditorState& editor, std::span<qint16> memory) {
    const std::size_t first = editor.Target == EditTarget::Memory ? 0 : 1;
    for (std::size_t i = first; i < records.size(); ++i) {
        const Record& record = records[i];
        if (record.Adr >= 0 && static_cast<std::size_t>(record.Adr) < memory.size()) {
            memory[static_cast<std::size_t>(record.Adr)] = record.Value;
        }
    }
}

}  // namespace

void BeginRedraw(EditorState& editor) {
    const View view = FitView({editor.ViewLeft, editor.ViewRight}, editor.Size->LastAdr);
    SetView(editor, view);
    editor.ViewMargin = static_cast<qint16>(ViewMargin(view));
    editor.CrossFresh = true;
    editor.PasteDragging = false;
    editor.CopyDragging = false;
}

bool ShowsSpline(const EditorState& editor, std::size_t records) {
    return records >= kFewestForSpline && editor.Target == EditTarget::Signal &&
           editor.SelectedInterpolation == Interpolation::Spline;
}

void TakeRecords(std::span<const Record> records, EditorState& editor, ArbMemories& memories) {
    if (ShowsSpline(editor, records.size())) {
        ComputeSpline(records, std::span(editor.ArbSignal).first(static_cast<std::size_t>(editor.Size->LastAdr) + 1));
    } else {
        CopyToMemory(records, editor, editor.Size->samples(memories));
    }
}
