#pragma once

#include <QStringList>

#include "platform/Desktop.h"

// True, after a message box, if a file that is about to be replaced is one of those that an open editor works on: the
// same file, however it is spelt and whatever links lead to it. A file that is gone is held by its place.
bool RefuseHeld(const QString& chosen, const QStringList& held, Desktop& desktop, const QString& title);
