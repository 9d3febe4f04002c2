#include "editor/ConstructionFileChoice.h"

#include "editor/HeldFiles.h"
#include "storage/ConstructionFile.h"

namespace {

FileRequest Request(const QString& title, const QString& extension) {
    return {.title = title,
            .filter = QStringLiteral("Settings (*.con) |*.con"),
            .extension = extension,
            .longest = FixedName::kLength};
}

// The hourglass stays for the caller, which goes on with the file.
bool Take(const ConstructionChoice& choice, const QString& chosen) {
    if (chosen.isEmpty()) {
        return false;
    }
    choice.desktop.BusyOn();
    choice.ConstructionFileName.Set(chosen);
    return true;
}

}  // namespace

bool EnsureConstructionFile(const ConstructionChoice& choice) {
    if (!choice.ConstructionFileName.Name().isEmpty()) {
        return true;
    }
    const bool makeNew = choice.desktop.Question(QStringLiteral("Do you want to create a new Signal?"),
                                                 QStringLiteral("Arbitrary Editor"), Desktop::Default::Yes);
    return makeNew ? ChooseNewConstructionFile(choice) : ChooseConstructionFile(choice);
}

bool ChooseNewConstructionFile(const ConstructionChoice& choice) {
    const QString title = QStringLiteral("New construction data");
    choice.boxfile.FileName = QStringLiteral("*.con");
    const QString chosen = choice.boxfile.ShowSave(Request(title, QStringLiteral("con")));
    const FixedName former = choice.ConstructionFileName;
    if (RefuseHeld(chosen, choice.heldFiles, choice.desktop, title) || !Take(choice, chosen)) {
        return false;
    }
    const QString name = choice.ConstructionFileName.Name();
    if (SaveConstructionFile(CreateConstructionFile(name))) {
        return true;
    }
    choice.ConstructionFileName = former;
    choice.desktop.BusyOff();
    choice.desktop.MessageBox(u"The file can't be written:\n" + name, title);
    return false;
}

bool ChooseConstructionFile(const ConstructionChoice& choice) {
    choice.boxfile.FileName = QStringLiteral("*.con");
    return Take(choice,
                choice.boxfile.ShowOpen(Request(QStringLiteral("Select construction data"), QStringLiteral("CON"))));
}
