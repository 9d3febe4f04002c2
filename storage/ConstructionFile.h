#pragma once

#include <QString>

#include "storage/NewFile.h"

// A construction file holds the construction points of a signal, those of each memory size in a table of its own:
// ARB4 and ARB16. Create and save run as a pair, as those of a setting file do, and are as safe.

// Starts a new file to take the place of fileName. After three failed attempts nothing is left behind, and the save
// fails.
NewFile CreateConstructionFile(const QString& fileName);

// Writes the two end points of each table, value 0, and puts the file in place. False: what stood there is untouched
// and nothing is left behind.
bool SaveConstructionFile(NewFile file);

enum class ConstructionOutcome {
    Usable,                // both tables with both fields
    NotAConstructionFile,  // a setting file too
    Locked,                // another program kept its lock for longer than kLockWaitMs
    Unreadable,            // missing, no permission, fault of the disk
};

// Makes and changes no file, except that it rolls back what a killed writer left unfinished.
ConstructionOutcome CheckConstructionFile(const QString& fileName);
