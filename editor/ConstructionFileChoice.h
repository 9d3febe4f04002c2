#pragma once

#include <QStringList>

#include "core/FixedName.h"
#include "platform/FileBox.h"

// What the dialogs for construction files work with.
struct ConstructionChoice {
    FixedName ConstructionFileName;  // the one in force
    FileBox& boxfile;
    Desktop& desktop;
    QStringList heldFiles;  // a new file must not take the place of these; a message box says so
};

// The name of the construction file to work on: the one in force, or if there is none, a new or an existing file, as
// the user answers. A new file is made, or a message box says that it can't be; an existing one is neither read nor
// tested. Blank on Cancel or if a new file can't be made, which ends the calling operation. The hourglass stays for the
// caller, which goes on with the file.
FixedName EnsureConstructionFile(const ConstructionChoice& choice);

// The two dialogs by themselves, for the commands that name a file whether or not one is named already.
FixedName ChooseNewConstructionFile(const ConstructionChoice& choice);
FixedName ChooseConstructionFile(const ConstructionChoice& choice);
