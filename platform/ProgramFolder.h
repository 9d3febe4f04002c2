#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

// The folder of the program's own files: that of the executable, or the user's application data folder where the user
// may not write beside the executable, or nothing but packages should. Made if it is missing.
QString ProgramFolder(const QString& beside = QCoreApplication::applicationDirPath());

// Where documents that come with the program are looked for, in order.
QStringList DocumentFolders();
