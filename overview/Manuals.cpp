#include "overview/Manuals.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Its path in the first of the folders that holds it; empty if none does.
QString FindManual(const QStringList& folders, const QString& fileName) {
    for (const QString& folder : folders) {
        const QFileInfo manual(QDir(folder), fileName);
        if (manual.isFile()) {
            return manual.absoluteFilePath();
        }
    }
    return {};
}

}  // namespace

void OpenManual(Desktop& desktop, const QStringList& folders, const QString& fileName) {
    desktop.BusyOn();
    const QString manual = FindManual(folders, fileName);
    if (!manual.isEmpty()) {
        desktop.OpenInViewer(QUrl::fromLocalFile(manual));
    }
    desktop.BusyOff();
}

QString ManualToolTip(const QStringList& folders, const QString& fileName) {
    const QString manual = FindManual(folders, fileName);
    return manual.isEmpty() && !folders.isEmpty()
               ? QStringLiteral("Missing: %1 belongs in %2").arg(fileName, QDir::toNativeSeparators(folders.first()))
               : manual;
}
