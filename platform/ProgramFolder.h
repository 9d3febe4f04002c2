#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

// The folder of the program's own files: that of the executable; or the user's application data folder, if the user may
// not write beside the executable, or if that folder belongs to the packages. Made if it is missing.
QString ProgramFolder(const QString& beside = QCoreApplication::applicationDirPath());

// Where documents that come with the program are looked for, in order.
QStringList DocumentFolders();
