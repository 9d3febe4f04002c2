#include "editor/ConstructionFileChoice.h"

#include "editor/HeldFiles.h"
#include "editor/StoreFaults.h"
#include "storage/ConstructionFile.h"

namespace {

FileRequest Request(const QString& title, const QString& extension) {
    return {.title = title,
            .filter = QStringLiteral("Settings (*.con) |*.con"),
            .extension = extension,
            .longest = FixedName::kLength};
}

}  // namespace

FixedName EnsureConstructionFile(const ConstructionChoice& choice) {
    if (!choice.ConstructionFileName.Name().isEmpty()) {
        return choice.ConstructionFileName;
    }
    const bool makeNew = choice.desktop.Question(QStringLiteral("Do you want to create a new Signal?"),
                                                 QStringLiteral("Arbitrary Editor"), Desktop::Default::Yes);
    return makeNew ? ChooseNewConstructionFile(choice) : ChooseConstructionFile(choice);
}

FixedName ChooseNewConstructionFile(const ConstructionChoice& choice) {
    const QString title = QStringLiteral("New construction data");
    choice.boxfile.FileName = QStringLiteral("*.con");
    FixedName chosen(choice.boxfile.ShowSave(Request(title, QStringLiteral("con"))));
    const QString name = chosen.Name();
    if (name.isEmpty() || RefuseHeld(name, choice.heldFiles, choice.desktop, title)) {
        return FixedName();
    }
    choice.desktop.BusyOn();
    if (SaveConstructionFile(CreateConstructionFile(name))) {
        return chosen;
    }
    choice.desktop.BusyOff();
    TellNotWritten(choice.desktop, name, title);
    return FixedName();
}

FixedName ChooseConstructionFile(const ConstructionChoice& choice) {
    choice.boxfile.FileName = QStringLiteral("*.con");
    FixedName chosen(
        choice.boxfile.ShowOpen(Request(QStringLiteral("Select construction data"), QStringLiteral("CON"))));
    if (!chosen.Name().isEmpty()) {
        choice.desktop.BusyOn();
    }
    return chosen;
}
