#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace SQLite {
class Database;
}

using FillDatabase = std::function<void(SQLite::Database& database)>;  // gives up by throwing

// A database file that takes the place of another at once or not at all: it is built beside it under a name of its own
// and renamed into place when all of it is on the disk. A kill or a full disk at any moment leaves the old file or the
// new one. Several saves for one name, of this program or of others, don't disturb each other: the last one stays. The
// hidden file that a kill can leave goes with the next save for the same name.
class NewFile {
  public:
    // Starts the new file beside fileName with what fill makes, in up to three attempts. If none succeeds, nothing is
    // left behind and Finish fails.
    NewFile(const QString& fileName, const FillDatabase& fill);
    NewFile(NewFile&& other) noexcept;
    ~NewFile();  // throws away what was not put in place

    // Completes the file and puts it in the place of fileName, with the permissions of the old one; works once. False:
    // what stood at fileName is untouched and nothing is left behind. So it is where a folder or a write-protected file
    // stands there, or a database that another connection keeps locked for longer than kLockWaitMs.
    bool Finish(const FillDatabase& fill);

  private:
    class Part;
    std::unique_ptr<Part> part_;
};
