#pragma once

#include <QString>
#include <QStringList>

// The folder of the program's own files: that of the executable, or the user's application data folder where the user
// may not write beside the executable. Made if it is missing.
QString ProgramFolder();

// Where documents that come with the program are looked for, in order.
QStringList DocumentFolders();
