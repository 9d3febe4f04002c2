#pragma once

#include <QString>
#include <functional>
#include <span>
#include <vector>

#include "core/EditorState.h"
#include "core/FixedName.h"
#include "storage/TableWork.h"

// What came of one operation on a table.
struct TableResult {
    QString fileName = {};  // of the table; empty if none was touched
    StoreOutcome outcome = StoreOutcome::Done;
    bool changed = false;  // false after a failure, and where there was nothing to work on

    bool Failed() const { return outcome != StoreOutcome::Done; }
};

// The tables that the editor's operations work on. Every change to a record goes through here, and each operation is
// one transaction: all of it or nothing.
class EditorTables {
  public:
    // Both names are read anew at each operation.
    EditorTables(const FixedName& SettingFileName, const FixedName& ConstructionFileName)
        : SettingFileName_(SettingFileName), ConstructionFileName_(ConstructionFileName) {}

    // The file of the data control Data1, through which the pens and the entry fields edit. No records are kept from
    // one operation to the next, so nothing has to be read anew after a change.
    QString DatabaseName;

    // The file that is named for this target now. Data1 may still work on one that was named before.
    QString FileOf(EditTarget target) const {
        return (target == EditTarget::Memory ? SettingFileName_ : ConstructionFileName_).Name();
    }

    // The rows by address; empty on a failure.
    static TableResult Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records);

    // Runs work on the table; it says whether it found a record to work on.
    using Work = std::function<bool(RecordTable& table)>;
    TableResult Change(const QString& fileName, const MemorySize& size, const Work& work);
    // Puts the records in place of all rows.
    TableResult Replace(const QString& fileName, const MemorySize& size, std::span<const Record> records);

  private:
    const FixedName& SettingFileName_;
    const FixedName& ConstructionFileName_;
};
