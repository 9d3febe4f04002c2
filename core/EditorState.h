#pragma once

#include <QString>
#include <QtGlobal>
#include <array>

#include "core/ArbMemory.h"
#include "core/MemorySize.h"

enum class EditTarget { Memory, Signal };  // opEditmode 0 and 1: the table of a setting file, or construction points
enum class Pen { Draw, Delete, Copy, Paste };         // opPenmode 0 to 3
enum class Interpolation { Linear, Spline };          // Opintmode 0 and 1
enum class RecordedScale { FullRange, Trace, Zero };  // scale 0 to 2 of the window `recording`
enum class FillStretch { Whole, View, Copied };       // stretch 0 to 2 of the window `formula`: what is filled

// What the waveform editor remembers, also while its form is closed. Addresses run from 0 to the LastAdr of the current
// memory size; values from -2047 to 2047, in the band around the view up to 2060.
struct EditorState {
    // What is chosen. The controls write it on a click and show it on a refresh.
    EditTarget Target = EditTarget::Memory;
    Pen SelectedPen = Pen::Draw;
    Interpolation SelectedInterpolation = Interpolation::Linear;
    const MemorySize* Size = &kMemory4k;  // never null
    bool Markers = true;                  // the records of the view show as dots

    // The spline through the construction points, one value for each address, as the last spline view left it.
    std::array<qint16, kAddresses16k> ArbSignal{};
    // What was copied or read, in the order of taking.
    std::array<qint16, kAddresses16k> CopyBuffer{};

    qint16 ViewLeft = 1000;  // the part shown in Picture2; 0 <= ViewLeft < ViewRight <= LastAdr
    qint16 ViewRight = 2000;
    qint16 ViewMargin = 0;  // width of the shaded strip at either side of it

    bool ZoomDragging = false;  // a view is being chosen by a drag in Picture1
    qint16 ZoomDragFrom = 0;
    qint16 ZoomDragTo = -1;  // -1 until the second mouse move

    float CrossX = 0.0F;  // where the crosshair stands
    float CrossY = 0.0F;
    bool CrossFresh = true;  // the picture was cleared: no old crosshair to take away

    bool LineActive = false;  // the first click of a line was made
    float LineX1 = 0.0F;      // the first point of the line, after the second click its left end
    float LineY1 = 0.0F;
    float LineX2 = -1.0F;  // its moving end; -1 from the first click to the first mouse move
    float LineY2 = 0.0F;

    bool CopyDragging = false;
    qint16 CopyStart = 0;        // where the last Copy drag began and ended; no distance counts as an empty buffer
    qint16 CopyEnd = 0;          // -1 during the first move of a drag
    qint16 FormerCopyStart = 0;  // both as they were before the button went down, for when the drag is abandoned
    qint16 FormerCopyEnd = 0;
    bool PasteDragging = false;
    qint16 PasteAt = 0;  // lowest address of the paste

    // Since the left button went down; a redraw ends a drag, and the next move goes on with a new one.
    enum class Drag { None, Copy, Paste } DragSincePress = Drag::None;
    bool DragsHeld = false;  // a drag was abandoned, and its button is still down: no other one begins

    // What the window `formula` was left with.
    QString FormulaText = QStringLiteral("sin(2*pi*x)");
    FillStretch FormulaStretch = FillStretch::Whole;
    bool FormulaScaled = false;  // to the full range

    RecordedScale RecordingScale = RecordedScale::FullRange;  // as the window `recording` was left

    bool EditorRedrawPending = false;  // Timer1 redraws at its next tick
    bool EditorOpen = false;           // the form is loaded
};
