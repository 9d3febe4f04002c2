#pragma once

#include <functional>
#include <vector>

#include "storage/RecordStore.h"

// One operation on one table of a file, which is opened for it and closed again: so a file that was deleted, replaced
// or locked meanwhile is noticed.

// The rows of a table; empty on a failure. Their ids stay 0.
StoreOutcome ReadTable(const QString& fileName, const char* table, RecordOrder order, std::vector<Record>& records);

using TableChange = std::function<void(RecordTable& table)>;

// All that change does, or nothing of it.
StoreOutcome ChangeTable(const QString& fileName, const char* table, const TableChange& change);
