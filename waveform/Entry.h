#pragma once

#include "waveform/EditorTables.h"

// One sample, or one point of the signal, by its numbers: a sample is set; a point that is there is removed, one that
// is not is added. The value is one of a sample. No record has an address that 16 bits can't hold: such a one changes
// nothing.
TableResult EnterPoint(const EditorState& editor, EditorTables& tables, double address, double value);
