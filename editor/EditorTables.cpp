#include "editor/EditorTables.h"

namespace {

QString Reason(StoreOutcome outcome) {
    switch (outcome) {
        case StoreOutcome::Missing:
            return QStringLiteral("The file is not there any more:");
        case StoreOutcome::NotADatabase:
            return QStringLiteral("The file holds no waveform:");
        case StoreOutcome::Locked:
            return QStringLiteral("Another program has locked the file:");
        default:
            return QStringLiteral("The file can't be read or changed:");
    }
}

}  // namespace

bool EditorTables::Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records,
                        Telling telling) {
    return Judge(ReadTable(fileName, size.table, RecordOrder::Address, records), fileName, telling);
}

bool EditorTables::Change(const QString& fileName, const MemorySize& size, const TableChange& change, Telling telling) {
    return Judge(ChangeTable(fileName, size.table, change), fileName, telling);
}

void EditorTables::Replace(RecordTable& table, std::span<const Record> records) {
    std::vector<Record> former;
    table.Read(RecordOrder::Insertion, former);
    for (const Record& record : former) {
        table.Remove(record.id);
    }
    for (const Record& record : records) {
        table.Add(record.Adr, record.Value);
    }
}

bool EditorTables::Judge(StoreOutcome outcome, const QString& fileName, Telling telling) {
    if (outcome == StoreOutcome::Done) {
        toldOf_.clear();
        return true;
    }
    const bool tell = telling == Telling::Box || (telling == Telling::Once && toldOf_ != fileName);
    if (tell) {
        toldOf_ = fileName;  // before the box: timers run while it stands
        desktop_.BusyOff();
        desktop_.MessageBox(Reason(outcome) + u'\n' + fileName, QStringLiteral("Arbitrary Editor"));
    }
    return false;
}
