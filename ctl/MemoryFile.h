#pragma once

#include <QString>

#include "core/ArbMemory.h"
#include "core/MemorySize.h"
#include "core/PanelState.h"

// Files that hold a memory: a setting file, or a table as text with a line for each address. What is wrong with one
// goes into `fault`, a sentence that says what to do.

// Reads one memory. A setting file does not hold the last address of the 16K memory, a table may leave it out: it keeps
// its sample then, and `hasLast` is false.
bool ReadMemoryFile(const QString& fileName, const MemorySize& size, ArbMemories& memories, bool& hasLast,
                    QString& fault);

// True for a file that WriteMemoryFile can write: its name ends in ".set" or ".csv", and a ".set" that is there is one.
bool CheckMemoryFile(const QString& fileName, QString& fault);

// What a setting file holds that is there; nothing changes if there is none.
bool ReadKept(const QString& fileName, PanelState& panel, ArbMemories& memories, QString& fault);

// False for a file that can't be written where it is named, to be asked ahead of a transfer that takes minutes.
bool CanWrite(const QString& fileName, QString& fault);

// Writes one memory, whole or not at all. An existing setting file keeps its settings and its other memory; a new one
// gets these settings, and zeros. `points`: how many addresses a table gets.
bool WriteMemoryFile(const QString& fileName, const MemorySize& size, const ArbMemories& memories, int points,
                     const PanelState& settings, QString& fault);
