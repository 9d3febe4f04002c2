#include "storage/NewFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <filesystem>
#include <memory>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "storage/StoreOutcome.h"

namespace {

constexpr int kAttempts = 3;

// The file that a name stands for: behind a link, that to which it leads.
QFileInfo TargetOf(const QString& fileName) {
    const QFileInfo named(fileName);
    return QFileInfo(named.exists() ? named.canonicalFilePath() : named.absoluteFilePath());
}

// Short whatever the target is called, so that every name that can be saved can be built.
QString PartPrefix(const QFileInfo& target) {
    const QByteArray hash = QCryptographicHash::hash(target.fileName().toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral(".trx5276-") + QString::fromLatin1(hash.toHex().left(8)) + u'-';
}

// Each process has its own, so that no save can put another's half-built file in place.
QString PartOf(const QFileInfo& target) {
    return target.absolutePath() + u'/' + PartPrefix(target) + QString::number(QCoreApplication::applicationPid()) +
           QStringLiteral(".part");
}

void RemoveParts(const QFileInfo& target) {
    QDir folder(target.absolutePath());
    const QStringList parts =
        folder.entryList({PartPrefix(target) + QStringLiteral("*.part")}, QDir::Files | QDir::Hidden);
    for (const QString& part : parts) {
        folder.remove(part);
    }
}

// A part that fails is thrown away whole, so it needs no journal. All of its bytes reach the disk at its one synced
// commit, that of the completion.
void FillPart(const QString& part, int flags, const char* synchronous, const FillDatabase& fill) {
    SQLite::Database database(part.toStdString(), flags | SQLite::OPEN_NOMUTEX, kLockWaitMs);
    database.exec("PRAGMA journal_mode = OFF");
    database.exec(synchronous);
    SQLite::Transaction transaction(database);
    fill(database);
    transaction.commit();
}

// Keeps other connections off the file that is about to go, and rolls back what a killed one left unfinished in it.
// False: it must stay.
bool HoldTarget(const QFileInfo& target, std::unique_ptr<SQLite::Database>& hold) {
    if (!target.exists()) {
        return true;
    }
    if (!target.isFile() || !target.isWritable()) {
        return false;
    }
    if (target.size() == 0) {
        return true;
    }
    try {
        hold = std::make_unique<SQLite::Database>(target.absoluteFilePath().toStdString(), SQLite::OPEN_READWRITE,
                                                  kLockWaitMs);
        // A change of the journal mode does not wait for a lock, so the lock comes first, and stays from then on.
        hold->exec("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
        return hold->execAndGet("PRAGMA journal_mode = DELETE").getString() == "delete";
    } catch (const std::exception& fault) {
        return OutcomeOf(fault) == StoreOutcome::NotADatabase;
    }
}

// Makes the rename itself last. Without it a power failure could still bring the old file back, whole.
void SyncFolder(const QString& folder) {
#ifdef Q_OS_UNIX
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
#else
    Q_UNUSED(folder)
#endif
}

bool PutInPlace(const QString& part, const QFileInfo& target) {
    std::unique_ptr<SQLite::Database> hold;
    if (!HoldTarget(target, hold)) {
        return false;
    }
    if (target.exists()) {
        QFile::setPermissions(part, target.permissions());
    }
    const QString path = target.absoluteFilePath();
    // The engine would play a journal of the old file into the new one.
    for (const QLatin1String suffix : {QLatin1String("-journal"), QLatin1String("-wal"), QLatin1String("-shm")}) {
        QFile::remove(path + suffix);
    }
    std::error_code fault;
    std::filesystem::rename(part.toStdU16String(), path.toStdU16String(), fault);
    if (fault) {
        return false;
    }
    SyncFolder(target.absolutePath());
    return true;
}

}  // namespace

bool BuildNewFile(const QString& fileName, const FillDatabase& fill) {
    const QFileInfo target = TargetOf(fileName);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        RemoveParts(target);
        try {
            FillPart(PartOf(target), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, "PRAGMA synchronous = OFF", fill);
            return true;
        } catch (const std::exception&) {
            continue;
        }
    }
    RemoveParts(target);
    return false;
}

bool FinishNewFile(const QString& fileName, const FillDatabase& fill) {
    const QFileInfo target = TargetOf(fileName);
    const QString part = PartOf(target);
    bool inPlace = false;
    try {
        FillPart(part, SQLite::OPEN_READWRITE, "PRAGMA synchronous = FULL", fill);
        inPlace = PutInPlace(part, target);
    } catch (const std::exception&) {
        inPlace = false;
    }
    if (!inPlace) {
        QFile::remove(part);
    }
    return inPlace;
}
