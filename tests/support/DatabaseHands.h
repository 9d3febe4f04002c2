#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QString>

// A user of a database file who goes past the program, as with the shell of the engine.

inline void Execute(const QString& file, const std::string& statements) {
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(statements);
}

// The one text that a query gives.
inline QString Ask(const QString& file, const std::string& query) {
    return QString::fromStdString(SQLite::Database(file.toStdString()).execAndGet(query));
}

// Rows of a table as "address=value ...", by address.
inline QString Rows(const QString& file, const std::string& table) {
    return Ask(file, "select ifnull(group_concat(Adr || '=' || Value, ' '), '') from (select * from " + table +
                         " order by Adr, rowid)");
}

// From now on every change of this address fails.
inline void Guard(const QString& file, const std::string& table, int adr) {
    for (const auto& [change, row] : {std::pair("insert", "new"), {"update", "old"}, {"delete", "old"}}) {
        Execute(file, "create trigger on_" + std::string(change) + " before " + change + " on " + table + " when " +
                          row + ".Adr = " + std::to_string(adr) + " begin select raise(abort, 'full'); end");
    }
}
