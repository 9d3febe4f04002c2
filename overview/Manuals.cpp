#include "overview/Manuals.h"

#include <QDir>
#include <QFileInfo>

void OpenManual(Desktop& desktop, const QStringList& folders, const QString& fileName) {
    desktop.BusyOn();
    for (const QString& folder : folders) {
        const QFileInfo manual(QDir(folder), fileName);
        if (manual.isFile()) {
            desktop.OpenInViewer(QUrl::fromLocalFile(manual.absoluteFilePath()));
            break;
        }
    }
    desktop.BusyOff();
}
