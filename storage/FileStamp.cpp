#include "storage/FileStamp.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <array>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#else
#include <QDateTime>
#endif

namespace {

// In the head of a database file: counts the commits that changed it.
constexpr sqlite3_int64 kChangeCounterAt = 24;

}  // namespace

std::optional<FileIdentity> IdentityOf(const QString& fileName) {
#ifdef Q_OS_UNIX
    struct stat file {};
    if (::stat(QFile::encodeName(fileName).constData(), &file) != 0) {
        return std::nullopt;
    }
    return FileIdentity{static_cast<quint64>(file.st_dev), static_cast<quint64>(file.st_ino)};
#else
    const QFileInfo file(fileName);
    if (!file.exists()) {
        return std::nullopt;
    }
    return FileIdentity{0, static_cast<quint64>(file.birthTime().toMSecsSinceEpoch())};
#endif
}

FileStamp StampOf(const QString& fileName, const RecordStore& store) {
    FileStamp stamp{IdentityOf(fileName).value_or(FileIdentity{}), 0};
    // Through the engine's own handle: opening and closing the file beside it would take the engine's locks away.
    sqlite3_file* file = nullptr;
    sqlite3_file_control(store.Engine()->getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::array<uchar, sizeof(quint32)> counter{};
    if (file != nullptr && file->pMethods != nullptr &&
        file->pMethods->xRead(file, counter.data(), counter.size(), kChangeCounterAt) == SQLITE_OK) {
        stamp.changes = qFromBigEndian<quint32>(counter.data());
    }
    return stamp;
}
