#pragma once

#include <span>

#include "core/ArbMemory.h"
#include "core/EditorState.h"
#include "storage/RecordStore.h"

// What a redraw changes. The drawing itself changes nothing.

// At its beginning: the view is put onto the axis, a Copy or Paste drag ends, and no crosshair stands any more. A line
// under way goes on.
void BeginRedraw(EditorState& editor);

// True where this many records show as a spline, false where they show as a polyline.
bool ShowsSpline(const EditorState& editor, std::size_t records);

// Takes over the records that are to be drawn, by address: ArbSignal becomes their spline, or else the memory array
// follows them.
void TakeRecords(std::span<const Record> records, EditorState& editor, ArbMemories& memories);
