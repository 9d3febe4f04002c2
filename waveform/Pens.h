#pragma once

#include "waveform/EditorTables.h"

// The left press in Picture2, of the pens that write a line, a point or a zero; the others do nothing at a press. x and
// y as the pointer stands, also in the shaded strips. What they write is in the file at once. The first press of a line
// only begins it: LineActive.
TableResult PressPen(EditorState& editor, EditorTables& tables, float x, float y);
