#include "editor/HeldFiles.h"

#include <QFileInfo>
#include <algorithm>
#include <filesystem>

namespace {

using Path = std::filesystem::path;

Path PathOf(const QString& name) { return QFileInfo(name).filesystemAbsoluteFilePath(); }

// The file system says whether two names lead to one file: it knows its links, and whether it tells upper from lower
// case. Of names that lead nowhere yet it can't be asked.
bool AreOneFile(const Path& first, const Path& second) {
    std::error_code fault;
    if (std::filesystem::equivalent(first, second, fault)) {
        return true;
    }
    const bool bothGone = !std::filesystem::exists(first, fault) && !std::filesystem::exists(second, fault);
    const Path place = std::filesystem::weakly_canonical(first, fault);
    return bothGone && !fault && place == std::filesystem::weakly_canonical(second, fault);
}

}  // namespace

bool RefuseHeld(const QString& chosen, const QStringList& held, Desktop& desktop, const QString& title) {
    const Path target = PathOf(chosen);
    const bool refused = std::any_of(held.cbegin(), held.cend(),
                                     [&target](const QString& name) { return AreOneFile(target, PathOf(name)); });
    if (refused) {
        desktop.MessageBox(u"The editor works on this file. Please choose another name:\n" + chosen, title);
    }
    return refused;
}
