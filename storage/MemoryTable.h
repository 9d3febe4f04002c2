#pragma once

#include <SQLiteCpp/Statement.h>

// The shape that the memory tables and the tables of construction points share. Both throw the engine's exceptions.

void CreateMemoryTable(SQLite::Database& database, const char* table);

// Adds rows to one table, in the order of the calls.
class MemoryWriter {
  public:
    MemoryWriter(const SQLite::Database& database, const char* table);
    void Add(int adr, int value);

  private:
    SQLite::Statement insert_;
};
