#pragma once

#include <functional>
#include <span>
#include <vector>

#include "storage/FileStamp.h"
#include "storage/RecordStore.h"

// One operation on one table of a file, which is opened for it and closed again: so a file that was deleted, replaced
// or locked meanwhile is noticed.

// The rows of a table; empty on a failure. Their ids stay 0.
StoreOutcome ReadTable(const QString& fileName, const char* table, RecordOrder order, std::vector<Record>& records);

using TableChange = std::function<void(RecordTable& table)>;

// What a change did, and how the file is recognised before and after it.
struct TableTrace {
    FileStamp before;
    FileStamp after;
    std::vector<RowChange> rows;
};

// All that change does, or nothing of it. The trace is that of a change that was made.
StoreOutcome ChangeTable(const QString& fileName, const char* table, const TableChange& change,
                         TableTrace* trace = nullptr);

enum class Replay { Undo, Redo };

// Takes the changes back, the last one first, or makes them once more: all of them or none. ChangedSince, and nothing
// is touched, if the file is not the one of the stamp or if a row is not as the changes left it. Done gives the new
// stamp.
StoreOutcome ReplayChanges(const QString& fileName, const char* table, Replay way, std::span<const RowChange> rows,
                           FileStamp& stamp);
