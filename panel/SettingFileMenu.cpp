#include "panel/SettingFileMenu.h"

#include "storage/SettingFile.h"

QString SettingFileMenu::Choose(QString (Desktop::*dialog)(const FileRequest&)) {
    QString chosen = (desktop_.*dialog)({QStringLiteral("Select Settings"), QStringLiteral("Settings (*.set) |*.set"),
                                         dialogFileName_, QStringLiteral("SET")});
    if (!chosen.isEmpty()) {
        dialogFileName_ = chosen;
    }
    return chosen;
}

bool SettingFileMenu::Load() {
    dialogFileName_ = QStringLiteral("*.set");
    const QString chosen = Choose(&Desktop::OpenFile);
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
    const QString chosen = Choose(&Desktop::SaveFile);
    if (!chosen.isEmpty()) {
        desktop_.BusyOn();
        program_.SettingFileName.Set(chosen);
        const QString name = program_.SettingFileName.Name();
        CreateSettingFile(name);
        SaveSettingFile(name, program_.panel, program_.memories);
    }
    desktop_.BusyOff();
}
