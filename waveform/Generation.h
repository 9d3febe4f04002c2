#pragma once

#include "core/ArbMemory.h"
#include "waveform/EditorTables.h"

// The operations on a whole table: clearing it, and turning the signal into a memory.

// Of a memory all samples 0, of a signal the flat one of a new file.
TableResult ClearTable(const EditorState& editor, EditorTables& tables);

// The points that Data1 works on, by the interpolation selected, become the memory array and its table. Without points
// there is nothing to interpolate, and nothing changes. The spline is the one that the last redraw left.
TableResult GenerateMemory(const EditorState& editor, EditorTables& tables, ArbMemories& memories);
