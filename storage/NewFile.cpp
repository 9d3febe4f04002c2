#include "storage/NewFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <filesystem>
#include <stdexcept>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "storage/StoreOutcome.h"

namespace {

constexpr int kAttempts = 3;
constexpr QLatin1String kPartSuffix(".part");

// The file that is meant by a name: of a symbolic link, its target.
QFileInfo TargetOf(const QString& fileName) {
    const QFileInfo named(fileName);
    return QFileInfo(named.exists() ? named.canonicalFilePath() : named.absoluteFilePath());
}

// Short even for a long name of the target: the temporary name must not be too long for the file system.
QString PartPrefix(const QFileInfo& target) {
    const QByteArray hash = QCryptographicHash::hash(target.fileName().toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral(".trx5276-") + QString::fromLatin1(hash.toHex().left(8)) + u'-';
}

// No two saves share one, not even two of one process.
QString NewPartName(const QFileInfo& target) {
    return target.absolutePath() + u'/' + PartPrefix(target) + QUuid::createUuid().toString(QUuid::Id128) + kPartSuffix;
}

// A save that is under way holds a lock that keeps readers away; `hold` keeps away one that has just begun.
bool IsLeftBehind(const QString& part, std::unique_ptr<SQLite::Database>& hold) {
    try {
        hold = std::make_unique<SQLite::Database>(part.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        hold->exec("BEGIN; SELECT count(*) FROM sqlite_master");
        return true;
    } catch (const std::exception& fault) {
        return OutcomeOf(fault) == StoreOutcome::NotADatabase;  // it was killed while it wrote the header
    }
}

// Removes the unfinished files of killed saves for this target.
void ClearParts(const QFileInfo& target) {
    const QString prefix = PartPrefix(target);
    QDirIterator files(target.absolutePath(), QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        const QString path = files.next();
        std::unique_ptr<SQLite::Database> hold;
        const bool isPart = files.fileName().startsWith(prefix) && path.endsWith(kPartSuffix);
        if (isPart && IsLeftBehind(path, hold)) {
            QFile::remove(path);
        }
    }
}

// The lock lasts until the connection closes. The locking mode is set second: with it, two connections that wait for
// the lock would block each other.
void TakeLock(SQLite::Database& database) { database.exec("BEGIN EXCLUSIVE; PRAGMA locking_mode = EXCLUSIVE; COMMIT"); }

// Locks the file that is about to be replaced, and rolls back what a killed writer left unfinished in it. False: it
// must not be replaced.
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
        TakeLock(*hold);
        // By itself, a change of the journal mode does not wait for a lock.
        return hold->execAndGet("PRAGMA journal_mode = DELETE").getString() == "delete";
    } catch (const std::exception& fault) {
        return OutcomeOf(fault) == StoreOutcome::NotADatabase;
    }
}

// Makes the rename durable. Without it a power failure could still bring the old file back, whole.
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
    // The engine would apply a journal of the old file to the new one.
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

// The file while it is built. From its first moment to the rename a lock shows other saves that someone works on it;
// the system takes the lock away when the process ends, however it ends.
class NewFile::Part {
  public:
    explicit Part(const QFileInfo& target)
        : target_(target.absoluteFilePath()),
          name_(NewPartName(target)),
          database_(name_.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_NOMUTEX,
                    kLockWaitMs) {}
    // Removed while it is still locked.
    ~Part() {
        if (!inPlace_) {
            QFile::remove(name_);
        }
    }
    Q_DISABLE_COPY_MOVE(Part)

    // A part that fails is thrown away whole, so it needs no journal. All of its bytes reach the disk at its one synced
    // commit, that of the completion.
    void Start(const FillDatabase& fill) {
        database_.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        TakeLock(database_);
        // Before it was locked, another save may have taken it for left behind.
        if (!QFile::exists(name_)) {
            throw std::runtime_error("the file that was begun is gone");
        }
        Fill(fill);
    }
    bool Complete(const FillDatabase& fill) {
        database_.exec("PRAGMA synchronous = FULL");
        Fill(fill);
        inPlace_ = PutInPlace(name_, QFileInfo(target_));
        return inPlace_;
    }

  private:
    void Fill(const FillDatabase& fill) {
        SQLite::Transaction transaction(database_);
        fill(database_);
        transaction.commit();
    }

    QString target_;
    QString name_;
    SQLite::Database database_;
    bool inPlace_ = false;
};

NewFile::NewFile(const QString& fileName, const FillDatabase& fill) {
    const QFileInfo target = TargetOf(fileName);
    ClearParts(target);
    for (int attempt = 0; attempt < kAttempts && !part_; ++attempt) {
        try {
            auto part = std::make_unique<Part>(target);
            part->Start(fill);
            part_ = std::move(part);
        } catch (const std::exception&) {
            continue;
        }
    }
}

NewFile::NewFile(NewFile&&) noexcept = default;
NewFile::~NewFile() = default;

bool NewFile::Finish(const FillDatabase& fill) {
    const std::unique_ptr<Part> part = std::move(part_);
    try {
        return part && part->Complete(fill);
    } catch (const std::exception&) {
        return false;
    }
}
