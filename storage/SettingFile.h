#pragma once

#include <QString>

#include "core/ArbMemory.h"
#include "core/PanelState.h"
#include "storage/NewFile.h"

// A setting file holds a whole setting of the instrument and both arbitrary memories, in the tables ARB4, ARB16 and
// Settings; ARB_CON4 and ARB_CON16 stay empty. The reference choice tmIntRef is no part of it.
//
// Create and save run as a pair, create first. The file at fileName changes only in the last step of the save: until
// then, and after any failure, the old one stays whole.

// Starts a new file to take the place of fileName. After three failed attempts nothing is left behind, and the save
// fails.
NewFile CreateSettingFile(const QString& fileName);

// Fills the file that CreateSettingFile started and puts it in place. False: what stood there is untouched and nothing
// is left behind. May wait kLockWaitMs for a file that another program has locked.
bool SaveSettingFile(NewFile file, const PanelState& panel, const ArbMemories& memories);

enum class LoadOutcome {
    Loaded,
    NotASettingFile,  // no database, or one without the tables; nothing was changed
    Failed,           // missing, locked for longer than kLockWaitMs, or damaged; what could be read is in force
};

// Elements and fields for which the file holds nothing that fits keep their values, and PanelState as a whole if the
// file bears another version's mark. Makes and changes no file, except that it rolls back what a killed writer left
// unfinished.
LoadOutcome LoadSettingFile(const QString& fileName, PanelState& panel, ArbMemories& memories);
