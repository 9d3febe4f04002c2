#pragma once

#include <QString>
#include <functional>

namespace SQLite {
class Database;
}

// A database file takes the place of another at once or not at all: it is built beside it under a name of its own and
// renamed into place when all of it is on the disk. A kill or a full disk at any moment leaves the old file or the new
// one. The hidden file that a kill can leave goes with the next build for the same name.

using FillDatabase = std::function<void(SQLite::Database& database)>;  // gives up by throwing

// Starts the new file beside fileName with what fill makes, in up to three attempts. False: nothing is left behind.
bool BuildNewFile(const QString& fileName, const FillDatabase& fill);

// Completes the file that BuildNewFile started and puts it in the place of fileName, with the permissions of the old
// one. False: what stood at fileName is untouched and nothing is left behind. So it is where a folder or a
// write-protected file stands there, or a database that another connection keeps locked for longer than kLockWaitMs.
bool FinishNewFile(const QString& fileName, const FillDatabase& fill);
