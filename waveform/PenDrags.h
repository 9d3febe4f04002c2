#pragma once

#include <QLineF>
#include <optional>
#include <span>
#include <vector>

#include "waveform/EditorTables.h"

// What the pens do while the pointer moves over Picture2: the rubber band of a line, and the drags of Copy and Paste. x
// and y are held to the view, and memory is the array of the current size.

// Moves the free end of the line under way.
void StretchLine(EditorState& editor, float x, float y);
// The line under way, and the risers where it will leave and rejoin the present curve.
std::vector<QLineF> LineBand(const EditorState& editor, std::span<const qint16> memory);

// Abandons what is under way: the line begun, a copy, a paste. What was copied before stays. True if there was
// anything; a redraw is to follow. No drag begins then until the left button is up.
bool DropUnderWay(EditorState& editor);

// What a move comes to. A drag ends with the first move without the left button.
enum class DragStep { None, Copy, EndCopy, Paste, EndPaste };
DragStep NextDragStep(EditorState& editor, int buttons);  // buttons is 1 for the left one alone

// The stretch that a drag covers, in addresses.
struct DragBox {
    int from;
    double to;
};

// None at the first step.
std::optional<DragBox> CopyStep(EditorState& editor, float x);
// Takes the stretch into the copy buffer; from right to left it is taken mirrored. False if it is too short to be
// taken.
bool EndCopy(EditorState& editor, std::span<const qint16> memory, float x);

DragBox PasteStep(EditorState& editor, float x);
// Writes the copy buffer. What would lie beyond the end of the axis is dropped.
TableResult EndPaste(EditorState& editor, EditorTables& tables);
