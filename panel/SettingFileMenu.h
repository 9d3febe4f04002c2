#pragma once

#include "core/ProgramState.h"
#include "platform/FileBox.h"

// The commands "&Load settings" and "&Save settings": the dialogs and the files behind them. Cancel leaves everything
// as it is. A fault of a file is silent, except that a file of another kind is named to the user.
class SettingFileMenu {
  public:
    SettingFileMenu(ProgramState& program, FileBox& boxfile, Desktop& desktop)
        : program_(program), boxfile_(boxfile), desktop_(desktop) {}

    // True if a file was chosen: PanelState and the memories may have changed, and the panel is to be rebuilt.
    bool Load();
    void Save();

  private:
    ProgramState& program_;
    FileBox& boxfile_;
    Desktop& desktop_;
};
