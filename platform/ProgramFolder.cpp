#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString ProgramFolder(const QString& beside) {
    if (QFileInfo(beside).isWritable()) {
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
