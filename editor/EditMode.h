#pragma once

#include "editor/ConstructionFileChoice.h"
#include "editor/EditorContext.h"
#include "platform/FileBox.h"

// Which file the editor works on: the setting file in "Edit memory", the construction file in "Edit signal". A file
// that is no construction file is named to the user; the former name then stays in force, and the editor edits the
// memory.
class EditMode {
  public:
    EditMode(const EditorContext& context, FileBox& boxfile) : context_(context), boxfile_(boxfile) {}

    // The click routine of opEditmode. Cancel under "Edit signal" goes back to "Edit memory".
    void opEditmode_Click(int index);
    // "&New construction data" and "&Load construction data"
    void mnuncon_Click() { GoOverTo(ChooseNewConstructionFile); }
    void mnulcon_Click() { GoOverTo(ChooseConstructionFile); }

    // Gets a construction file named that can be worked on. False: the calling operation ends.
    bool EnsureConstruction() { return ChooseAndCheck(EnsureConstructionFile); }

    // The files that nothing else may take the place of while the editor is open.
    QStringList HeldFiles() const;

  private:
    QStringList HeldSettingFiles() const;
    using Chooser = FixedName (*)(const ConstructionChoice& choice);
    bool ChooseAndCheck(Chooser choose);
    void GoOverTo(Chooser choose);

    EditorContext context_;
    FileBox& boxfile_;
};
