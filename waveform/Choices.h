#pragma once

#include "waveform/EditorTables.h"

// What is chosen in the editor, as far as one choice brings others with it.

// Each opening of the form begins with the 4K memory, the view kFirstView, lines, dots, and nothing under way. What was
// copied stays.
void BeginEditing(EditorState& editor);

// Turns to a target: Data1 works on its file from here on, with the pen Draw. Another target asks for a redraw.
void WorkOn(EditTarget target, EditorState& editor, EditorTables& tables);

// The pen taken up instead of Paste is Copy while nothing was copied yet: there is nothing to paste.
void TakeUp(Pen pen, EditorState& editor);
