#include "editor/StoreFaults.h"

namespace {

QString Reason(StoreOutcome outcome) {
    switch (outcome) {
        case StoreOutcome::Missing:
            return QStringLiteral("The file is not there any more:");
        case StoreOutcome::NotADatabase:
            return QStringLiteral("The file holds no waveform:");
        case StoreOutcome::Locked:
            return QStringLiteral("Another program has locked the file:");
        default:
            return QStringLiteral("The file can't be read or changed:");
    }
}

}  // namespace

bool StoreFaults::Tell(const TableResult& result, Telling telling) {
    if (!result.Failed()) {
        toldOf_ = result.fileName.isEmpty() ? toldOf_ : QString();
        return true;
    }
    if (telling == Telling::Box || (telling == Telling::Once && toldOf_ != result.fileName)) {
        toldOf_ = result.fileName;  // before the box: timers run while it stands
        desktop_.BusyOff();
        desktop_.MessageBox(Reason(result.outcome) + u'\n' + result.fileName, QStringLiteral("Arbitrary Editor"));
    }
    return false;
}
