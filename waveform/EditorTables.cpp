#include "waveform/EditorTables.h"

#include <utility>

TableResult EditorTables::Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records) {
    return {fileName, ReadTable(fileName, size.table, RecordOrder::Address, records)};
}

TableResult EditorTables::Change(Edit edit, const MemorySize& size, const Work& work) {
    bool found = false;
    TableTrace trace;
    const QString fileName = edit.fileName;
    const StoreOutcome outcome = ChangeTable(
        fileName, size.table, [&](RecordTable& table) { found = work(table); }, &trace);
    if (!trace.rows.empty()) {
        EditStep step{edit.name, edit.target, &size, fileName, std::move(trace.rows), std::move(edit.elements)};
        KeepElements(step);
        History.Keep(std::move(step), trace.before, trace.after);
    }
    return {fileName, outcome, found && outcome == StoreOutcome::Done};
}

TableResult EditorTables::Replace(Edit edit, const MemorySize& size, std::span<const Record> records) {
    return Change(std::move(edit), size, [records](RecordTable& table) {
        std::vector<Record> former;
        table.Read(RecordOrder::Insertion, former);
        for (const Record& record : former) {
            table.Remove(record);
        }
        for (const Record& record : records) {
            table.Add(record.Adr, record.Value);
        }
        return true;
    });
}

// A redraw copies a new record into the array, and leaves the element as it is when the record is gone again. Elements
// that a memory table has records for follow those.
void EditorTables::KeepElements(EditStep& step) const {
    const std::span<const qint16> memory = step.size->samples(memories_);
    const int first = step.target == EditTarget::Memory ? 0 : step.size->lastTableAddress + 1;
    for (const RowChange& row : step.rows) {
        if (row.kind == RowChange::Kind::Added && row.Adr >= first && row.Adr <= step.size->LastAdr) {
            step.elements.push_back({row.Adr, memory[static_cast<std::size_t>(row.Adr)], std::nullopt});
        }
    }
}

void EditorTables::PutElements(const EditStep& step, Replay way) {
    const std::span<qint16> memory = step.size->samples(memories_);
    for (const ArrayElement& element : step.elements) {
        qint16& held = memory[static_cast<std::size_t>(element.Adr)];
        held = way == Replay::Undo ? element.before : element.after.value_or(held);
    }
}

TableResult EditorTables::Step(Replay way) {
    const EditStep* const step = History.Next(way);
    if (step == nullptr) {
        return {};
    }
    FileStamp stamp = History.StampOf(step->fileName);
    const TableResult result{step->fileName, ReplayChanges(step->fileName, step->size->table, way, step->rows, stamp),
                             true};
    switch (result.outcome) {
        case StoreOutcome::Done:
            PutElements(*step, way);
            History.Passed(way, stamp);
            return result;
        case StoreOutcome::Missing:
        case StoreOutcome::NotADatabase:
        case StoreOutcome::ChangedSince:
            History.End(result.fileName, EditHistory::Reason::ChangedSince);
            break;
        default:
            break;
    }
    return {result.fileName, result.outcome};
}

void EditorTables::EndStepsOfOtherFiles() {
    History.EndUnless([this](const FileIdentity& identity, EditTarget of) {
        return IdentityOf(FileOf(of)) == identity || IdentityOf(lastOf_[static_cast<std::size_t>(of)]) == identity;
    });
}
