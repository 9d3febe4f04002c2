#pragma once

#include "core/FixedName.h"
#include "platform/FileBox.h"

// Gets a construction file named if none is: asks whether to make a new signal, and shows the dialog for a new or for
// an existing file. A new file is made; an existing one is neither read nor tested. False on Cancel or an empty name,
// which ends the calling operation with the name as it was.
bool EnsureConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop);

// The two dialogs by themselves, for the commands that name a file whether or not one is named already.
bool ChooseNewConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop);
bool ChooseConstructionFile(FixedName& ConstructionFileName, FileBox& boxfile, Desktop& desktop);
