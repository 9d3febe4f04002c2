#pragma once

#include <span>
#include <vector>

#include "core/MemorySize.h"
#include "platform/Desktop.h"
#include "storage/TableWork.h"

// How a failure of the record store reaches the user.
enum class Telling {
    Box,     // one message box for each
    Once,    // one message box, and none any more until something succeeds: for what a timer repeats
    Silent,  // none
};

// The tables that the editor's tools work on. Each operation is one transaction: all of it or nothing.
class EditorTables {
  public:
    explicit EditorTables(Desktop& desktop) : desktop_(desktop) {}

    // The file of the data control Data1, through which the pens and the entry fields edit. No records are kept from
    // one operation to the next, so nothing has to be read anew after a change.
    QString DatabaseName;

    // The rows by address; empty on a failure.
    bool Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records, Telling telling);
    bool Change(const QString& fileName, const MemorySize& size, const TableChange& change, Telling telling);

    // In place of all rows.
    static void Replace(RecordTable& table, std::span<const Record> records);

  private:
    bool Judge(StoreOutcome outcome, const QString& fileName, Telling telling);

    Desktop& desktop_;
    QString toldOf_;  // the file whose failure was told, if nothing has succeeded since
};
