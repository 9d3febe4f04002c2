#pragma once

#include <QString>
#include <QtGlobal>
#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include "storage/StoreOutcome.h"

namespace SQLite {
class Database;
class Statement;
class Transaction;
}  // namespace SQLite

// One row of a memory table or a table of construction points.
struct Record {
    qint64 id = 0;  // names the row inside its table; grows in the order in which rows are added
    qint16 Adr = 0;
    qint16 Value = 0;
};

// What one change did to one row: it got another value, it was removed, or it was added.
struct RowChange {
    enum class Kind : quint8 { Set, Removed, Added };

    qint64 id = 0;
    qint16 Adr = 0;
    qint16 before = 0;  // Value; means nothing for a row that was added
    qint16 after = 0;   // Value; means nothing for a row that was removed
    Kind kind = Kind::Set;
};

enum class RecordOrder { Insertion, Address };  // equal addresses stand in the order of insertion

// One open database file. A failure throws nothing: the operation returns it, and Outcome says what it was.
class RecordStore {
  public:
    RecordStore();
    ~RecordStore();
    Q_DISABLE_COPY_MOVE(RecordStore)

    // Opens an existing file; makes none. Done only if the file can be read as a database. May wait kLockWaitMs.
    StoreOutcome Open(const QString& fileName);
    void Close();
    bool IsOpen() const { return database_ != nullptr; }

    // The first failure since the file was opened or the latest transaction began; Done if there was none.
    StoreOutcome Outcome() const { return outcome_; }

    // The engine's own handle, for the statements of this room; null while no file is open.
    SQLite::Database* Engine() const { return database_.get(); }

    // Runs work, which may throw; keeps the failure. False if it failed or no file is open.
    template <typename Work>
    bool Attempt(const Work& work) {
        try {
            if (database_) {
                work();
                return true;
            }
            Note(StoreOutcome::Failed);
        } catch (const std::exception& fault) {
            Note(OutcomeOf(fault));
        }
        return false;
    }

  private:
    friend class RecordTable;
    friend class StoreTransaction;

    void Note(StoreOutcome failure) {
        if (outcome_ == StoreOutcome::Done) {
            outcome_ = failure;
        }
    }
    // After a failure in a transaction the engine may have ended it: a later change would stand alone.
    bool RefusesChanges() const { return inTransaction_ && outcome_ != StoreOutcome::Done; }

    std::shared_ptr<SQLite::Database> database_;
    StoreOutcome outcome_ = StoreOutcome::Done;
    bool inTransaction_ = false;
};

// The rows of one table (Adr, Value) of an open store. Its statements are prepared once, so keep it for a whole
// operation. A table opened on a store stays with the file that was open then.
class RecordTable {
  public:
    RecordTable(RecordStore& store, const char* table);  // the name in upper or lower case
    ~RecordTable();
    Q_DISABLE_COPY_MOVE(RecordTable)

    // The table exists and has both fields.
    bool Usable();

    // Both ways of walking pass over rows whose Adr or Value is no 16-bit integer. False on a failure: the rows before
    // it were walked.

    // The quick way, for reading alone; visit must not change the table.
    bool Walk(RecordOrder order, const std::function<void(qint16 adr, qint16 value)>& visit);

    // Fills records with a picture of the whole table, which later changes don't touch: rows can be changed and
    // removed while it is walked.
    bool Read(RecordOrder order, std::vector<Record>& records);

    // The first record added of those with this address; none on a failure too. Searches row by row: where many
    // addresses are wanted, Read once.
    std::optional<Record> FindFirst(int adr);

    // Each is false on a failure, or if no row stands in the table as the record says.
    bool Change(const Record& former, qint16 Value);
    bool Remove(const Record& former);
    bool Add(qint16 adr, qint16 value);

    // What these three did so far, in order. A row that got the value it had is not among them.
    const std::vector<RowChange>& Changes() const { return changes_; }
    // The same changes backwards, and once more. False on a failure, or if the row is not as the change found or left
    // it.
    bool TakeBack(const RowChange& change);
    bool Repeat(const RowChange& change);

  private:
    enum Text : std::size_t { kChange, kRemove, kAdd, kAddAgain, kTexts };
    SQLite::Statement& Prepared(Text text);
    bool ChangeRow(Text text, std::initializer_list<qint64> values);
    bool SetValue(const Record& former, qint16 Value) {
        return ChangeRow(kChange, {Value, former.id, former.Adr, former.Value});
    }
    bool Delete(const Record& former) { return ChangeRow(kRemove, {former.id, former.Adr, former.Value}); }
    bool AddAgain(const Record& record) { return ChangeRow(kAddAgain, {record.id, record.Adr, record.Value}); }

    RecordStore& store_;
    std::shared_ptr<SQLite::Database> database_;  // outlives the statements
    const char* table_;
    std::array<std::unique_ptr<SQLite::Statement>, kTexts> statements_;
    std::vector<RowChange> changes_;
};

// All that is read or changed between begin and commit belongs together. Not nested.
class StoreTransaction {
  public:
    enum class Kind {
        Write,  // takes the write lock at once; may wait kLockWaitMs
        Read,   // every read sees the file as it is now
    };

    explicit StoreTransaction(RecordStore& store, Kind kind = Kind::Write);
    ~StoreTransaction();  // rolls back what was not committed
    Q_DISABLE_COPY_MOVE(StoreTransaction)

    // False if the lock could not be had; every change is then refused.
    bool Begun() const { return transaction_ != nullptr; }
    // False if anything failed since the begin: nothing of it reaches the file.
    bool Commit();

  private:
    RecordStore& store_;
    std::shared_ptr<SQLite::Database> database_;  // outlives the transaction
    std::unique_ptr<SQLite::Transaction> transaction_;
};
