#include "waveform/FormulaFill.h"

#include <algorithm>

#include "waveform/CopyBuffer.h"

std::optional<Stretch> StretchOf(FillStretch which, const EditorState& editor) {
    Stretch stretch{0, editor.Size->lastTableAddress};
    if (which == FillStretch::View) {
        stretch = {editor.ViewLeft, std::min<int>(editor.ViewRight, stretch.last)};
    } else if (which == FillStretch::Copied) {
        const auto [low, high] = std::minmax(editor.CopyStart, editor.CopyEnd);
        stretch = {std::max<int>(low, 0), std::min<int>(high, stretch.last)};
    }
    const bool nothingCopied = which == FillStretch::Copied && CopiedDistance(editor) == 0;
    return nothingCopied || stretch.Length() < 1 ? std::nullopt : std::optional(stretch);
}

TableResult FillMemory(const EditorState& editor, EditorTables& tables, const Stretch& stretch,
                       std::span<const qint16> samples, const char* step) {
    return tables.Change(tables.OnFileOf(EditTarget::Memory, step), *editor.Size, [&](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        std::vector<bool> found(samples.size());
        for (const Record& record : records) {
            if (record.Adr >= stretch.first && record.Adr <= stretch.last) {
                const auto k = static_cast<std::size_t>(record.Adr - stretch.first);
                table.Change(record, samples[k]);
                found[k] = true;
            }
        }
        for (std::size_t k = 0; k < samples.size(); ++k) {
            if (!found[k]) {
                table.Add(static_cast<qint16>(stretch.first + static_cast<int>(k)), samples[k]);
            }
        }
        return true;
    });
}
