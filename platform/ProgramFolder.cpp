#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// Where packages install programs. An administrator could write there, but nothing of a user's belongs there.
bool IsSystemFolder(const QString& folder) {
    const QString path = QFileInfo(folder).canonicalFilePath();
    return path == u"/usr/bin" || path == u"/usr/local/bin" || path == u"/bin";
}

}  // namespace

QString ProgramFolder(const QString& beside) {
    if (!IsSystemFolder(beside) && QFileInfo(beside).isWritable()) {
        return beside;
    }
    QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(own);
    return own;
}

QStringList DocumentFolders() {
    const QString beside = QCoreApplication::applicationDirPath();
    // Installed, the executable stands in bin/; in the source tree three folders below its top.
    QStringList folders{ProgramFolder(), beside, beside + QStringLiteral("/../share/doc/trx5276"),
                        beside + QStringLiteral("/../../..")};
    folders.removeDuplicates();
    return folders;
}
