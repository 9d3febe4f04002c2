#include "waveform/EditorTables.h"

TableResult EditorTables::Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records) {
    return {fileName, ReadTable(fileName, size.table, RecordOrder::Address, records)};
}

TableResult EditorTables::Change(const QString& fileName, const MemorySize& size, const Work& work) {
    bool found = false;
    const StoreOutcome outcome = ChangeTable(fileName, size.table, [&](RecordTable& table) { found = work(table); });
    return {fileName, outcome, found && outcome == StoreOutcome::Done};
}

TableResult EditorTables::Replace(const QString& fileName, const MemorySize& size, std::span<const Record> records) {
    return Change(fileName, size, [records](RecordTable& table) {
        std::vector<Record> former;
        table.Read(RecordOrder::Insertion, former);
        for (const Record& record : former) {
            table.Remove(record.id);
        }
        for (const Record& record : records) {
            table.Add(record.Adr, record.Value);
        }
        return true;
    });
}
