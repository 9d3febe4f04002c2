#pragma once

#include "editor/EditorContext.h"
#include "platform/FileBox.h"
#include "storage/ConstructionFileChoice.h"

// Which file the editor works on: the setting file in "Edit memory", the construction file in "Edit signal". A file
// that is no construction file is named to the user; the former name then stays in force, and the editor edits the
// memory.
class EditMode {
  public:
    EditMode(const EditorContext& context, FileBox& boxfile) : context_(context), boxfile_(boxfile) {}

    // The click routine of opEditmode. Cancel under "Edit signal" goes back to "Edit memory".
    void opEditmode_Click(int index);
    // "&New construction data" and "&Load construction data"
    void mnuncon_Click() { NameConstructionFile(ChooseNewConstructionFile); }
    void mnulcon_Click() { NameConstructionFile(ChooseConstructionFile); }

    // Gets a construction file named that can be worked on. False: the calling operation ends.
    bool EnsureConstruction() { return Name(EnsureConstructionFile); }
    // Data1 works on the file from here on.
    void EditSignal();
    void EditMemory();

    // The files that nothing else may take the place of while the editor is open.
    QStringList HeldFiles() const;

  private:
    using Choice = bool (*)(const ConstructionChoice& choice);
    bool Name(Choice choose);
    void NameConstructionFile(Choice choose);

    EditorContext context_;
    FileBox& boxfile_;
};
