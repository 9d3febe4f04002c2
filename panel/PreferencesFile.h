#pragma once

#include "core/Preferences.h"
#include "platform/Desktop.h"

// The file 5276.def in a folder. Neither routine stops the program: trouble gives one message box.

// Reads the preferences at start-up; makes an empty file where there is none. What can't be read keeps its value.
void LoadPreferences(const QString& folder, Preferences& preferences, Desktop& desktop);

// Writes the record over the first bytes of the file.
void SavePreferences(const QString& folder, const Preferences& preferences, Desktop& desktop);
