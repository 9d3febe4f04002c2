#pragma once

#include <QCursor>
#include <QString>

#include "editor/EditorFront.h"

// How a pen shows in the hand and what it says of itself.

// A cross at the point of work with a sign of the pen beside it.
QCursor PenCursor(Pen pen);

// What a click or a drag with this pen does.
QString PenHint(Pen pen, EditTarget target);
