#include "storage/MemoryTable.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <string>

void CreateMemoryTable(SQLite::Database& database, const char* table) {
    database.exec(std::string("CREATE TABLE ") + table + " (Adr SMALLINT, Value SMALLINT)");
}

MemoryWriter::MemoryWriter(const SQLite::Database& database, const char* table) : database_(database) {
    const std::string text = std::string("INSERT INTO ") + table + " (Adr, Value) VALUES (?, ?)";
    Check(sqlite3_prepare_v2(database.getHandle(), text.c_str(), -1, &insert_, nullptr), SQLITE_OK);
}

MemoryWriter::~MemoryWriter() { sqlite3_finalize(insert_); }

void MemoryWriter::Add(int adr, int value) {
    sqlite3_bind_int(insert_, 1, adr);
    sqlite3_bind_int(insert_, 2, value);
    Check(sqlite3_step(insert_), SQLITE_DONE);
    sqlite3_reset(insert_);
}

void MemoryWriter::Check(int result, int expected) const {
    if (result != expected) {
        throw SQLite::Exception(database_.getHandle(), result);
    }
}
