#pragma once

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

// True if a file that is about to be replaced is one of those that an open editor works on, by whatever path.
inline bool IsHeld(const QString& chosen, const QStringList& held) {
    return std::any_of(held.cbegin(), held.cend(),
                       [&chosen](const QString& file) { return QFileInfo(file) == QFileInfo(chosen); });
}
