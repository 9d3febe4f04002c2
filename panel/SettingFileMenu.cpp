#include "panel/SettingFileMenu.h"

#include "storage/SettingFile.h"

namespace {

FileRequest Request() {
    return {.title = QStringLiteral("Select Settings"),
            .filter = QStringLiteral("Settings (*.set) |*.set"),
            .extension = QStringLiteral("SET")};
}

}  // namespace

bool SettingFileMenu::Load() {
    boxfile_.FileName = QStringLiteral("*.set");
    const QString chosen = boxfile_.ShowOpen(Request());
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

void SettingFileMenu::Save() {
    const QString chosen = boxfile_.ShowSave(Request());
    if (!chosen.isEmpty()) {
        desktop_.BusyOn();
        program_.SettingFileName.Set(chosen);
        const QString name = program_.SettingFileName.Name();
        CreateSettingFile(name);
        SaveSettingFile(name, program_.panel, program_.memories);
    }
    desktop_.BusyOff();
}
