#include "waveform/CopyBuffer.h"

#include <algorithm>

#include "waveform/Samples.h"
#include "waveform/TraceReply.h"

bool TakeTrace(const QString& text, EditorState& editor) {
    if (!ReadTrace(text, editor.CopyBuffer)) {
        return false;
    }
    editor.CopyEnd = kTraceSamples;
    editor.CopyStart = 0;
    return true;
}

TableResult RepeatTrace(const EditorState& editor, EditorTables& tables) {
    const auto repeat = [&editor](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        for (std::size_t counter = 0; counter < records.size(); ++counter) {
            const qint16 sample = editor.CopyBuffer[counter % kTraceSamples + 1];
            table.Change(records[counter], sample);
        }
        return true;
    };
    return tables.Change(tables.OnFileOf(EditTarget::Memory, "import"), *editor.Size, repeat);
}

TableResult FitTrace(const EditorState& editor, EditorTables& tables) {
    const int last = editor.Size->lastTableAddress;
    const int step = (last + 1) / kTraceSamples;
    std::vector<Record> points;
    for (int i = 1; i <= kTraceSamples; ++i) {
        points.push_back({0, static_cast<qint16>((i - 1) * step), editor.CopyBuffer[static_cast<std::size_t>(i)]});
    }
    points.push_back({0, static_cast<qint16>(last), editor.CopyBuffer[kTraceSamples]});
    return tables.Replace(tables.OnFileOf(EditTarget::Signal, "import"), *editor.Size, points);
}

TableResult FitCopied(const EditorState& editor, EditorTables& tables) {
    const int span = std::min(CopiedDistance(editor), kMemory16k.LastAdr);
    if (span == 0) {
        return {};
    }
    const double top = editor.Size->LastAdr;
    std::vector<Record> points;
    for (int i = 0; i <= span; ++i) {
        points.push_back({0, Nearest(top / span * i), editor.CopyBuffer[static_cast<std::size_t>(i)]});
    }
    return tables.Replace(tables.OnFileOf(EditTarget::Signal, "fit"), *editor.Size, points);
}
