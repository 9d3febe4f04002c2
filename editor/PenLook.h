#pragma once

#include <QCursor>
#include <QPainter>
#include <QString>
#include <array>

#include "core/EditorState.h"

// How a pen shows: in opPenmode, in the hand, and in what it says of itself.
struct PenLook {
    const char* caption;
    void (*sign)(QPainter& painter);  // the shape of the cursor, sharp in its corner
    bool inSignal;                    // open in "Edit signal"; in "Edit memory" every pen is
    const char* memoryHint;           // what a click or a drag does in "Edit memory"
    const char* signalHint;           // and in "Edit signal"

    const char* Hint(EditTarget target) const { return target == EditTarget::Memory ? memoryHint : signalHint; }
};

// In the order of Pen.
extern const std::array<PenLook, 4> kPenLooks;
inline const PenLook& LookOf(Pen pen) { return kPenLooks[static_cast<std::size_t>(pen)]; }

// A pencil, or an arrow with a sign of the pen beside it, sharp at `ratio` device pixels to a logical one.
QCursor PenCursor(Pen pen, qreal ratio);
