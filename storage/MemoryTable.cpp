#include "storage/MemoryTable.h"

#include <SQLiteCpp/Database.h>

#include <string>

void CreateMemoryTable(SQLite::Database& database, const char* table) {
    database.exec(std::string("CREATE TABLE ") + table + " (Adr SMALLINT, Value SMALLINT)");
}

MemoryWriter::MemoryWriter(const SQLite::Database& database, const char* table)
    : insert_(database, std::string("INSERT INTO ") + table + " (Adr, Value) VALUES (?, ?)") {}

void MemoryWriter::Add(int adr, int value) {
    insert_.bind(1, adr);
    insert_.bind(2, value);
    insert_.exec();
    insert_.reset();
}
