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
    QStringList folders{ProgramFolder(), QCoreApplication::applicationDirPath()};
    folders.removeDuplicates();
    return folders;
}
