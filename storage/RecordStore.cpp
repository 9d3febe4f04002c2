#include "storage/RecordStore.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QFileInfo>
#include <limits>
#include <string>

namespace {

// A statement that stays stepped keeps its lock on the file.
class InUse {
  public:
    explicit InUse(SQLite::Statement& statement) : statement_(statement) {}
    ~InUse() { statement_.tryReset(); }
    Q_DISABLE_COPY_MOVE(InUse)

  private:
    SQLite::Statement& statement_;
};

// The value is fetched once for its type and its number. No other thread uses the connection.
bool ReadSample(sqlite3_stmt* row, int column, qint16& sample) {
    sqlite3_value* const stored = sqlite3_column_value(row, column);
    const sqlite3_int64 value = sqlite3_value_int64(stored);
    if (sqlite3_value_type(stored) != SQLITE_INTEGER || value < std::numeric_limits<qint16>::min() ||
        value > std::numeric_limits<qint16>::max()) {
        return false;
    }
    sample = static_cast<qint16>(value);
    return true;
}

// The rows of a query, straight from the engine: the wrapper's price at each column is as high as that of the row.
class Rows {
  public:
    Rows(SQLite::Database& database, const std::string& query) : database_(database.getHandle()) {
        Check(sqlite3_prepare_v2(database_, query.c_str(), -1, &row_, nullptr), SQLITE_OK);
        hasId_ = sqlite3_column_count(row_) > 2;
    }
    ~Rows() { sqlite3_finalize(row_); }
    Q_DISABLE_COPY_MOVE(Rows)

    void Bind(int value) { sqlite3_bind_int(row_, 1, value); }

    // The next row that is a record; false after the last.
    bool Next(Record& record) {
        int result = SQLITE_ROW;
        while ((result = sqlite3_step(row_)) == SQLITE_ROW) {
            if (ReadSample(row_, 0, record.Adr) && ReadSample(row_, 1, record.Value)) {
                record.id = hasId_ ? sqlite3_column_int64(row_, 2) : 0;
                return true;
            }
        }
        Check(result, SQLITE_DONE);
        return false;
    }

  private:
    void Check(int result, int expected) const {
        if (result != expected) {
            throw SQLite::Exception(database_, result);
        }
    }

    sqlite3* database_;
    sqlite3_stmt* row_ = nullptr;
    bool hasId_ = false;
};

constexpr char kRows[] = "SELECT Adr, Value, rowid FROM ";
constexpr char kRowsWithoutIds[] = "SELECT Adr, Value FROM ";

std::string InOrder(RecordOrder order) {
    return order == RecordOrder::Address ? " ORDER BY Adr, rowid" : " ORDER BY rowid";
}

void TouchFile(SQLite::Database& database) { database.execAndGet("SELECT count(*) FROM sqlite_master"); }

}  // namespace

RecordStore::RecordStore() = default;
RecordStore::~RecordStore() = default;

StoreOutcome RecordStore::Open(const QString& fileName) {
    Close();
    outcome_ = StoreOutcome::Done;
    const QFileInfo file(fileName);
    if (!file.isFile()) {  // a pipe would block the read
        outcome_ = StoreOutcome::Missing;
        return outcome_;
    }
    try {
        // Not read-only: what a killed writer left has to be rolled back before anything can be read.
        database_ = std::make_shared<SQLite::Database>(file.absoluteFilePath().toStdString(),
                                                       SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, kLockWaitMs);
        TouchFile(*database_);
    } catch (const std::exception& fault) {
        Close();
        outcome_ = OutcomeOf(fault);
    }
    return outcome_;
}

void RecordStore::Close() { database_.reset(); }

RecordTable::RecordTable(RecordStore& store, const char* table)
    : store_(store), database_(store.database_), table_(table) {}

RecordTable::~RecordTable() = default;

SQLite::Statement& RecordTable::Prepared(Text text) {
    static constexpr std::array<std::pair<const char*, const char*>, kTexts> kAroundTable{{
        {"UPDATE ", " SET Value = ? WHERE rowid = ? AND Adr = ? AND Value = ?"},
        {"DELETE FROM ", " WHERE rowid = ? AND Adr = ? AND Value = ?"},
        {"INSERT INTO ", " (Adr, Value) VALUES (?, ?)"},
        {"INSERT OR IGNORE INTO ", " (rowid, Adr, Value) VALUES (?, ?, ?)"},
    }};
    std::unique_ptr<SQLite::Statement>& statement = statements_[text];
    if (!statement) {
        statement = std::make_unique<SQLite::Statement>(
            *database_, std::string(kAroundTable[text].first) + table_ + kAroundTable[text].second);
    }
    return *statement;
}

bool RecordTable::Usable() {
    return store_.Attempt([&] { const Rows rows(*database_, std::string(kRows) + table_); });
}

bool RecordTable::Walk(RecordOrder order, const std::function<void(qint16 adr, qint16 value)>& visit) {
    return store_.Attempt([&] {
        Rows rows(*database_, std::string(kRowsWithoutIds) + table_ + InOrder(order));
        Record record;
        while (rows.Next(record)) {
            visit(record.Adr, record.Value);
        }
    });
}

bool RecordTable::Read(RecordOrder order, std::vector<Record>& records) {
    records.clear();
    return store_.Attempt([&] {
        Rows rows(*database_, std::string(kRows) + table_ + InOrder(order));
        Record record;
        while (rows.Next(record)) {
            records.push_back(record);
        }
    });
}

std::optional<Record> RecordTable::FindFirst(int adr) {
    std::optional<Record> found;
    store_.Attempt([&] {
        Rows rows(*database_, std::string(kRows) + table_ + " WHERE Adr = ? ORDER BY rowid");
        rows.Bind(adr);
        Record record;
        if (rows.Next(record)) {
            found = record;
        }
    });
    return found;
}

bool RecordTable::ChangeRow(Text text, std::initializer_list<qint64> values) {
    bool changed = false;
    return !store_.RefusesChanges() && store_.Attempt([&] {
        SQLite::Statement& change = Prepared(text);
        const InUse inUse(change);
        int place = 0;
        for (const qint64 value : values) {
            change.bind(++place, int64_t{value});
        }
        changed = change.exec() == 1;
    }) && changed;
}

bool RecordTable::Change(const Record& former, qint16 Value) {
    const bool changed = SetValue(former, Value);
    if (changed && Value != former.Value) {
        changes_.push_back({former.id, former.Adr, former.Value, Value, RowChange::Kind::Set});
    }
    return changed;
}

bool RecordTable::Remove(const Record& former) {
    const bool removed = Delete(former);
    if (removed) {
        changes_.push_back({former.id, former.Adr, former.Value, 0, RowChange::Kind::Removed});
    }
    return removed;
}

bool RecordTable::Add(qint16 adr, qint16 value) {
    const bool added = ChangeRow(kAdd, {adr, value});
    if (added) {
        changes_.push_back({database_->getLastInsertRowid(), adr, 0, value, RowChange::Kind::Added});
    }
    return added;
}

bool RecordTable::TakeBack(const RowChange& change) {
    switch (change.kind) {
        case RowChange::Kind::Set:
            return SetValue({change.id, change.Adr, change.after}, change.before);
        case RowChange::Kind::Removed:
            return AddAgain({change.id, change.Adr, change.before});
        default:
            return Delete({change.id, change.Adr, change.after});
    }
}

bool RecordTable::Repeat(const RowChange& change) {
    switch (change.kind) {
        case RowChange::Kind::Set:
            return SetValue({change.id, change.Adr, change.before}, change.after);
        case RowChange::Kind::Removed:
            return Delete({change.id, change.Adr, change.before});
        default:
            return AddAgain({change.id, change.Adr, change.after});
    }
}

StoreTransaction::StoreTransaction(RecordStore& store, Kind kind) : store_(store), database_(store.database_) {
    store_.outcome_ = StoreOutcome::Done;
    store_.inTransaction_ = true;
    store_.Attempt([&] {
        auto transaction = std::make_unique<SQLite::Transaction>(
            *database_,
            kind == Kind::Write ? SQLite::TransactionBehavior::IMMEDIATE : SQLite::TransactionBehavior::DEFERRED);
        TouchFile(*database_);  // the picture of a reading transaction is that of its first read
        transaction_ = std::move(transaction);
    });
}

StoreTransaction::~StoreTransaction() { store_.inTransaction_ = false; }

bool StoreTransaction::Commit() {
    const bool committed =
        Begun() && store_.outcome_ == StoreOutcome::Done && store_.Attempt([&] { transaction_->commit(); });
    transaction_.reset();  // rolls back after a failure
    return committed;
}
