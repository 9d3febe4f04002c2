#include "waveform/Entry.h"

#include <limits>

#include "waveform/Samples.h"

TableResult EnterPoint(const EditorState& editor, EditorTables& tables, double address, double value) {
    using Address = std::numeric_limits<qint16>;
    if (address < Address::min() || address > Address::max()) {
        return {};
    }
    const Record entered{0, Nearest(address), Nearest(value)};
    const bool memory = editor.Target == EditTarget::Memory;
    return tables.Change(tables.OnData1("entry", editor.Target), *editor.Size, [&entered, memory](RecordTable& table) {
        const auto found = table.FindFirst(entered.Adr);
        if (!found) {
            return table.Add(entered.Adr, entered.Value);
        }
        return memory ? table.Change(*found, entered.Value) : table.Remove(*found);
    });
}
