#include "storage/TableWork.h"

#include <algorithm>

StoreOutcome ReadTable(const QString& fileName, const char* table, RecordOrder order, std::vector<Record>& records) {
    records.clear();
    RecordStore store;
    if (store.Open(fileName) != StoreOutcome::Done) {
        return store.Outcome();
    }
    RecordTable rows(store, table);
    rows.Walk(order, [&records](qint16 adr, qint16 value) { records.push_back({0, adr, value}); });
    if (store.Outcome() != StoreOutcome::Done) {
        records.clear();
    }
    return store.Outcome();
}

StoreOutcome ChangeTable(const QString& fileName, const char* table, const TableChange& change, TableTrace* trace) {
    RecordStore store;
    if (store.Open(fileName) != StoreOutcome::Done) {
        return store.Outcome();
    }
    StoreTransaction transaction(store);
    if (transaction.Begun()) {
        const FileStamp before = StampOf(fileName, store);
        RecordTable rows(store, table);
        change(rows);
        if (transaction.Commit() && trace != nullptr) {
            *trace = {before, StampOf(fileName, store), rows.Changes()};
        }
    }
    return store.Outcome();
}

StoreOutcome ReplayChanges(const QString& fileName, const char* table, Replay way, std::span<const RowChange> rows,
                           FileStamp& stamp) {
    RecordStore store;
    if (store.Open(fileName) != StoreOutcome::Done) {
        return store.Outcome();
    }
    StoreTransaction transaction(store);
    if (!transaction.Begun()) {
        return store.Outcome();
    }
    RecordTable target(store, table);
    const auto takesBack = [&target](const RowChange& row) { return target.TakeBack(row); };
    const auto repeats = [&target](const RowChange& row) { return target.Repeat(row); };
    const bool made =
        StampOf(fileName, store) == stamp && (way == Replay::Undo ? std::all_of(rows.rbegin(), rows.rend(), takesBack)
                                                                  : std::all_of(rows.begin(), rows.end(), repeats));
    if (!made) {  // the transaction ends without a commit
        return store.Outcome() == StoreOutcome::Done ? StoreOutcome::ChangedSince : store.Outcome();
    }
    if (transaction.Commit()) {
        stamp = StampOf(fileName, store);
    }
    return store.Outcome();
}
