#include "storage/ConstructionFileChoice.h"

#include "storage/ConstructionFile.h"

namespace {

FileRequest Request(const QString& title, const QString& extension) {
    return {.title = title, .filter = QStringLiteral("Settings (*.con) |*.con"), .extension = extension};
}

// The hourglass stays for the caller, which goes on with the file.
bool Take(FixedName& name, const QString& chosen, Desktop& desktop) {
    if (chosen.isEmpty()) {
        return false;
    }
    desktop.BusyOn();
    name.Set(chosen);
    return true;
}

}  // namespace

bool EnsureConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop) {
    if (!ConstructionFileName.Name().isEmpty()) {
        return true;
    }
    const bool makeNew =
        desktop.Question(QStringLiteral("Do you want to create a new Signal?"), QStringLiteral("Arbitrary Editor"));
    return makeNew ? ChooseNewConstructionFile(ConstructionFileName, boxfile, desktop)
                   : ChooseConstructionFile(ConstructionFileName, boxfile, desktop);
}

bool ChooseNewConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop) {
    boxfile.FileName = QStringLiteral("*.con");
    const QString chosen = boxfile.ShowSave(Request(QStringLiteral("New construction data"), QStringLiteral("con")));
    if (!Take(ConstructionFileName, chosen, desktop)) {
        return false;
    }
    CreateConstructionFile(ConstructionFileName.Name());
    SaveConstructionFile(ConstructionFileName.Name());
    return true;
}

bool ChooseConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop) {
    boxfile.FileName = QStringLiteral("*.con");
    return Take(ConstructionFileName,
                boxfile.ShowOpen(Request(QStringLiteral("Select construction data"), QStringLiteral("CON"))), desktop);
}
