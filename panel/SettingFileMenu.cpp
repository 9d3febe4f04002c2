#include "panel/SettingFileMenu.h"

#include "editor/HeldFiles.h"
#include "storage/SettingFile.h"

namespace {

FileRequest Request(const QString& title) {
    return {.title = title,
            .filter = QStringLiteral("Settings (*.set) |*.set"),
            .extension = QStringLiteral("SET"),
            .longest = FixedName::kLength};
}

}  // namespace

bool SettingFileMenu::Load() {
    boxfile_.FileName = QStringLiteral("*.set");
    const FixedName chosen(boxfile_.ShowOpen(Request(QStringLiteral("Select Settings"))));
    const QString name = chosen.Name();
    if (name.isEmpty()) {
        desktop_.BusyOff();
        return false;
    }
    desktop_.BusyOn();
    if (LoadSettingFile(name, program_.panel, program_.memories) == LoadOutcome::NotASettingFile) {
        desktop_.BusyOff();
        desktop_.MessageBox(u"This is not a settings file:\n" + name, QStringLiteral("Load settings"));
    } else {
        program_.SettingFileName = chosen;
    }
    return true;
}

void SettingFileMenu::Save(const QStringList& held) {
    SaveAs(QStringLiteral("Select Settings"), held, !held.isEmpty());
}

bool SettingFileMenu::SaveForEditor(const QStringList& held) {
    boxfile_.FileName = QStringLiteral("*.set");
    return SaveAs(QStringLiteral("Store Settings"), held, true);
}

// True if the settings stand in the file chosen. An editor must not go over to a file that couldn't be written.
bool SettingFileMenu::SaveAs(const QString& title, const QStringList& held, bool forEditor) {
    const FixedName chosen(boxfile_.ShowSave(Request(title)));
    const QString name = chosen.Name();
    if (name.isEmpty() || RefuseHeld(name, held, desktop_, title)) {
        desktop_.BusyOff();
        return false;
    }
    desktop_.BusyOn();
    const bool saved = SaveSettingFile(CreateSettingFile(name), program_.panel, program_.memories);
    desktop_.BusyOff();
    if (saved || !forEditor) {
        program_.SettingFileName = chosen;
    } else {
        desktop_.MessageBox(u"The editor can't work on this file, because it can't be written:\n" + name, title);
    }
    return saved;
}
