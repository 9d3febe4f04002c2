#pragma once

#include <QString>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "core/EditorState.h"
#include "storage/TableWork.h"

// An element of a memory array that may stand without a record.
struct ArrayElement {
    int Adr = 0;
    qint16 before = 0;                 // what it held before the step
    std::optional<qint16> after = {};  // what the step left in it; none if a redraw takes that from a record
};

// One operation on a table, with what it takes to undo it and to make it again.
struct EditStep {
    const char* name;  // as the menu shows it behind "Undo"
    EditTarget target;
    const MemorySize* size;
    QString fileName;
    std::vector<RowChange> rows;
    std::vector<ArrayElement> elements;
};

// The steps of the editor that can be undone, and those that can be made again. At most kMostSteps and kMostBytes are
// kept: the oldest go first, the newest always stays.
class EditHistory {
  public:
    static constexpr std::size_t kMostSteps = 200;
    static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

    // Why steps had to go: with them undone the file would not be as it was.
    enum class Reason { AnotherFile, ChangedSince };
    struct Ending {
        QString fileName;
        Reason reason;
    };

    // Takes a step that was made; those that were undone go. The stamps are those of its file, before it and after it.
    void Keep(EditStep step, const FileStamp& before, const FileStamp& after);

    // The step to undo or to make again now; null if there is none.
    const EditStep* Next(Replay way) const;
    const FileStamp& StampOf(const QString& fileName) const { return stamps_.at(fileName); }
    // Next(way) was made; its file is known by this stamp from now on.
    void Passed(Replay way, const FileStamp& stamp);

    // The steps of the file end, done and undone.
    void End(const QString& fileName, Reason reason);
    // So do those of every file that is no longer the one for the target of its steps.
    using IsFileOf = std::function<bool(const FileIdentity& identity, EditTarget target)>;
    void EndUnless(const IsFileOf& isFileOf);

    // The last ending that nobody has asked for yet.
    std::optional<Ending> TakeEnding() { return std::exchange(ending_, std::nullopt); }

  private:
    void Trim();

    std::deque<EditStep> done_;
    std::deque<EditStep> undone_;
    std::map<QString, FileStamp> stamps_;
    std::optional<Ending> ending_;
};
