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
    const QString chosen = boxfile_.ShowOpen(Request(QStringLiteral("Select Settings")));
    if (chosen.isEmpty()) {
        desktop_.BusyOff();
        return false;
    }
    desktop_.BusyOn();
    const FixedName former = program_.SettingFileName;
    program_.SettingFileName.Set(chosen);
    const QString name = program_.SettingFileName.Name();
    if (LoadSettingFile(name, program_.panel, program_.memories) == LoadOutcome::NotASettingFile) {
        program_.SettingFileName = former;
        desktop_.BusyOff();
        desktop_.MessageBox(u"This is not a settings file:\n" + name, QStringLiteral("Load settings"));
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
    const QString chosen = boxfile_.ShowSave(Request(title));
    const FixedName former = program_.SettingFileName;
    bool saved = false;
    if (!RefuseHeld(chosen, held, desktop_, title) && !chosen.isEmpty()) {
        desktop_.BusyOn();
        program_.SettingFileName.Set(chosen);
        const QString name = program_.SettingFileName.Name();
        saved = SaveSettingFile(CreateSettingFile(name), program_.panel, program_.memories);
        if (!saved && forEditor) {
            program_.SettingFileName = former;
            desktop_.BusyOff();
            desktop_.MessageBox(u"The editor can't work on this file, because it can't be written:\n" + name, title);
        }
    }
    desktop_.BusyOff();
    return saved;
}
