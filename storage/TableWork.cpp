#include "storage/TableWork.h"

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

StoreOutcome ChangeTable(const QString& fileName, const char* table, const TableChange& change) {
    RecordStore store;
    if (store.Open(fileName) != StoreOutcome::Done) {
        return store.Outcome();
    }
    StoreTransaction transaction(store);
    if (transaction.Begun()) {
        RecordTable rows(store, table);
        change(rows);
        transaction.Commit();
    }
    return store.Outcome();
}
