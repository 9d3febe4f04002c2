#include "storage/ConstructionFile.h"

#include <SQLiteCpp/Database.h>

#include "core/MemorySize.h"
#include "storage/MemoryTable.h"
#include "storage/RecordStore.h"

NewFile CreateConstructionFile(const QString& fileName) {
    return {fileName, [](SQLite::Database& database) {
                for (const MemorySize* const size : kMemorySizes) {
                    CreateMemoryTable(database, size->table);
                }
            }};
}

bool SaveConstructionFile(NewFile file) {
    return file.Finish([](SQLite::Database& database) {
        for (const MemorySize* const size : kMemorySizes) {
            MemoryWriter writer(database, size->table);
            writer.Add(0, 0);
            writer.Add(size->LastAdr, 0);
        }
    });
}

ConstructionOutcome CheckConstructionFile(const QString& fileName) {
    RecordStore store;
    switch (store.Open(fileName)) {
        case StoreOutcome::Done:
            break;
        case StoreOutcome::NotADatabase:
            return ConstructionOutcome::NotAConstructionFile;
        case StoreOutcome::Locked:
            return ConstructionOutcome::Locked;
        default:
            return ConstructionOutcome::Unreadable;
    }
    for (const MemorySize* const size : kMemorySizes) {
        if (!RecordTable(store, size->table).Usable()) {
            return ConstructionOutcome::NotAConstructionFile;
        }
    }
    // A setting file has the same tables; as a signal, its memories would be cut down to a few points.
    const bool settings = store.Engine()->tryExec("select 1 from settings limit 0") == SQLite::OK;
    return settings ? ConstructionOutcome::NotAConstructionFile : ConstructionOutcome::Usable;
}
