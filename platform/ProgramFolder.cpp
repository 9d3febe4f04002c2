#include "platform/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString ProgramFolder() {
    QString beside = QCoreApplication::applicationDirPath();
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
