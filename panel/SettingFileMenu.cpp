#include "panel/SettingFileMenu.h"

#include <utility>

#include "storage/HeldFiles.h"
#include "storage/SettingFile.h"

namespace {

FileRequest Request(const QString& title) {
    return {.title = title, .filter = QStringLiteral("Settings (*.set) |*.set"), .extension = QStringLiteral("SET")};
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

void SettingFileMenu::Save(const QStringList& held) { SaveAs(QStringLiteral("Select Settings"), held); }

bool SettingFileMenu::SaveForEditor(const QStringList& held) {
    boxfile_.FileName = QStringLiteral("*.set");
    const FixedName former = program_.SettingFileName;
    const QString title = QStringLiteral("Store Settings");
    if (SaveAs(title, held)) {
        return true;
    }
    if (program_.SettingFileName.Text() != former.Text()) {
        const QString name = std::exchange(program_.SettingFileName, former).Name();
        desktop_.MessageBox(u"The editor can't work on this file, because it can't be written:\n" + name, title);
    }
    return false;
}

// True if the settings stand in the file chosen.
bool SettingFileMenu::SaveAs(const QString& title, const QStringList& held) {
    const QString chosen = boxfile_.ShowSave(Request(title));
    bool saved = false;
    if (IsHeld(chosen, held)) {
        desktop_.MessageBox(u"The editor works on this file. Please choose another name:\n" + chosen, title);
    } else if (!chosen.isEmpty()) {
        desktop_.BusyOn();
        program_.SettingFileName.Set(chosen);
        const QString name = program_.SettingFileName.Name();
        CreateSettingFile(name);
        saved = SaveSettingFile(name, program_.panel, program_.memories);
    }
    desktop_.BusyOff();
    return saved;
}
