#pragma once

#include <cstdlib>

#include "waveform/EditorTables.h"

// What was copied or read, and its ways into a whole table. Its way into a stretch of one is the pen Paste.

// The distance from CopyStart to CopyEnd, in addresses. The buffer holds one sample more, but 0 counts as empty.
inline int CopiedDistance(const EditorState& editor) { return std::abs(editor.CopyEnd - editor.CopyStart); }

// Reads a trace into the buffer, where it counts as copied from 0 to kTraceSamples. False as by ReadTrace; what counts
// as copied then stays as it was.
bool TakeTrace(const QString& text, EditorState& editor);

// The trace over and over through the whole memory table, in place of its values.
TableResult RepeatTrace(const EditorState& editor, EditorTables& tables);

// In place of all points of the signal: each sample of the trace, and the last one once more at the end of the axis.
TableResult FitTrace(const EditorState& editor, EditorTables& tables);

// In place of all points of the signal: what was copied, stretched over the whole axis. An empty buffer changes
// nothing.
TableResult FitCopied(const EditorState& editor, EditorTables& tables);
