#pragma once

#include <QString>
#include <array>
#include <functional>
#include <span>
#include <vector>

#include "core/ArbMemory.h"
#include "core/EditorState.h"
#include "core/FixedName.h"
#include "storage/TableWork.h"
#include "waveform/EditHistory.h"

// What came of one operation on a table.
struct TableResult {
    QString fileName = {};  // of the table; empty if none was touched
    StoreOutcome outcome = StoreOutcome::Done;
    bool changed = false;  // false after a failure, and where there was nothing to work on

    bool Failed() const { return outcome != StoreOutcome::Done; }
};

// An operation on a table, as the history keeps it.
struct Edit {
    const char* name;  // as the menu shows it behind "Undo"
    EditTarget target;
    QString fileName;
    std::vector<ArrayElement> elements = {};  // that it changes though no record has their address
};

// The tables that the editor's operations work on. Every change to a record goes through here. Each operation is one
// transaction, all of it or nothing, and one step of the history.
class EditorTables {
  public:
    // Both names are read anew at each operation.
    EditorTables(const FixedName& SettingFileName, const FixedName& ConstructionFileName, ArbMemories& memories)
        : SettingFileName_(SettingFileName), ConstructionFileName_(ConstructionFileName), memories_(memories) {}

    // The file of the data control Data1, through which the pens and the entry fields edit. No records are kept from
    // one operation to the next, so nothing has to be read anew after a change.
    QString DatabaseName;
    // Data1 goes over to the file that is named for this target now.
    void OpenData1(EditTarget target) {
        DatabaseName = FileOf(target);
        lastOf_[static_cast<std::size_t>(target)] = DatabaseName;
    }

    // The file that is named for this target now. Data1 may still work on one that was named before.
    QString FileOf(EditTarget target) const {
        return (target == EditTarget::Memory ? SettingFileName_ : ConstructionFileName_).Name();
    }

    // An operation on the file of Data1, and one on the file that is named for a target.
    Edit OnData1(const char* name, EditTarget target) const { return {name, target, DatabaseName}; }
    Edit OnFileOf(EditTarget target, const char* name) const { return {name, target, FileOf(target)}; }

    // The rows by address; empty on a failure.
    static TableResult Read(const QString& fileName, const MemorySize& size, std::vector<Record>& records);

    // Runs work on the table; it says whether it found a record to work on.
    using Work = std::function<bool(RecordTable& table)>;
    TableResult Change(Edit edit, const MemorySize& size, const Work& work);
    // Puts the records in place of all rows.
    TableResult Replace(Edit edit, const MemorySize& size, std::span<const Record> records);

    EditHistory History;
    // Undoes or makes again the next step, in the file that it wrote and in the elements that have no record; a redraw
    // is to follow. Where the file is no longer as the step left it nothing is touched, and the steps of that file end.
    TableResult Step(Replay way);
    // Ends the steps of files that are no longer in use for their target. One under another name stays in use until
    // Data1 goes over to it: settings that are merely saved end nothing.
    void EndStepsOfOtherFiles();

  private:
    void KeepElements(EditStep& step) const;
    void PutElements(const EditStep& step, Replay way);

    const FixedName& SettingFileName_;
    const FixedName& ConstructionFileName_;
    ArbMemories& memories_;
    std::array<QString, 2> lastOf_;  // the file on which Data1 worked last, by target
};
