#pragma once

#include <QStringList>

#include "core/FixedName.h"
#include "platform/FileBox.h"

// What the dialogs for construction files work with.
struct ConstructionChoice {
    FixedName& ConstructionFileName;
    FileBox& boxfile;
    Desktop& desktop;
    QStringList heldFiles;  // a new file must not take the place of these; a message box says so
};

// Gets a construction file named if none is: asks whether to make a new signal, and shows the dialog for a new or for
// an existing file. A new file is made, or a message box says that it can't be; an existing one is neither read nor
// tested. False on Cancel, an empty name or a new file that can't be made, which ends the calling operation with the
// name as it was.
bool EnsureConstructionFile(const ConstructionChoice& choice);

// The two dialogs by themselves, for the commands that name a file whether or not one is named already.
bool ChooseNewConstructionFile(const ConstructionChoice& choice);
bool ChooseConstructionFile(const ConstructionChoice& choice);
