#pragma once

#include <QString>

// A construction file holds the construction points of a signal, those of each memory size in a table of its own:
// ARB4 and ARB16. Create and save run as a pair, as those of a setting file do, and are as safe.

// Starts a new file to take the place of fileName. False after three failed attempts; nothing is left behind.
bool CreateConstructionFile(const QString& fileName);

// Writes the two end points of each table, value 0, and puts the file in place. False: what stood at fileName is
// untouched and nothing is left behind.
bool SaveConstructionFile(const QString& fileName);

enum class ConstructionOutcome {
    Usable,                // both tables with both fields
    NotAConstructionFile,  // a setting file too
    Locked,                // another program kept its lock for longer than kLockWaitMs
    Unreadable,            // missing, no permission, fault of the disk
};

// Makes and changes no file, except that it rolls back what a killed writer left unfinished.
ConstructionOutcome CheckConstructionFile(const QString& fileName);
