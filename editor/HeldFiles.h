#pragma once

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

// True if a file that is about to be replaced is one of those that an open editor works on, by whatever path. A file
// that is gone is held by its name alone.
inline bool IsHeld(const QString& chosen, const QStringList& held) {
    const QFileInfo target(chosen);
    return !chosen.isEmpty() && std::any_of(held.cbegin(), held.cend(), [&target](const QString& name) {
        const QFileInfo file(name);
        return target.absoluteFilePath() == file.absoluteFilePath() || (target.exists() && target == file);
    });
}
