#pragma once

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "core/FixedName.h"
#include "platform/Desktop.h"

// True, after a message box, if a file that is about to be replaced is one of those that an open editor works on, by
// whatever path. A file that is gone is held by its name alone. A name that is too long counts as it is kept.
inline bool RefuseHeld(const QString& chosen, const QStringList& held, Desktop& desktop, const QString& title) {
    FixedName kept;
    kept.Set(chosen);
    const QFileInfo target(kept.Name());
    const bool refused = !chosen.isEmpty() && std::any_of(held.cbegin(), held.cend(), [&target](const QString& name) {
        const QFileInfo file(name);
        return target.absoluteFilePath() == file.absoluteFilePath() || (target.exists() && target == file);
    });
    if (refused) {
        desktop.MessageBox(u"The editor works on this file. Please choose another name:\n" + chosen, title);
    }
    return refused;
}
