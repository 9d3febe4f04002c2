#pragma once

#include <QtGlobal>

struct sqlite3_stmt;
namespace SQLite {
class Database;
}

// The shape that the memory tables and the tables of construction points share. Both throw the engine's exceptions.

void CreateMemoryTable(SQLite::Database& database, const char* table);

// Adds rows to one table, in the order of the calls.
class MemoryWriter {
  public:
    MemoryWriter(const SQLite::Database& database, const char* table);
    ~MemoryWriter();
    Q_DISABLE_COPY_MOVE(MemoryWriter)

    void Add(int adr, int value);

  private:
    void Check(int result, int expected) const;

    const SQLite::Database& database_;
    sqlite3_stmt* insert_ = nullptr;  // the engine's own: the wrapper's price at each row is a tenth of a save
};
