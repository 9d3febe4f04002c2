#pragma once

#include "core/ProgramState.h"
#include "platform/FileBox.h"

// The commands on setting files: the dialogs and the files behind them. Cancel leaves everything as it is. A fault of a
// file is silent, except where the user would lose something by it: a file of another kind, a file that the open editor
// works on, and one that the editor can't be opened on are named in a message box.
class SettingFileMenu {
  public:
    SettingFileMenu(ProgramState& program, FileBox& boxfile, Desktop& desktop)
        : program_(program), boxfile_(boxfile), desktop_(desktop) {}

    // "&Load settings". True if a file was chosen: PanelState and the memories may have changed, and the panel is to be
    // rebuilt.
    bool Load();
    // "&Save settings". None of the files held is replaced.
    void Save(const QStringList& held);
    // "E&ditor": as a save. True if the editor is to be shown.
    bool SaveForEditor(const QStringList& held);

  private:
    bool SaveAs(const QString& title, const QStringList& held, bool forEditor);

    ProgramState& program_;
    FileBox& boxfile_;
    Desktop& desktop_;
};
