#pragma once

#include <QCursor>
#include <QString>

#include "editor/EditorFront.h"

// How a pen shows in the hand and what it says of itself.

// A pencil, or an arrow with a sign of the pen beside it, sharp at `ratio` device pixels to a logical one.
QCursor PenCursor(Pen pen, qreal ratio);

// What a click or a drag with this pen does.
QString PenHint(Pen pen, EditTarget target);
