#include "editor/StoreFaults.h"

QString Complaint(StoreOutcome failure) {
    switch (failure) {
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

void TellNotWritten(Desktop& desktop, const QString& fileName, const QString& title) {
    desktop.MessageBox(u"The file can't be written:\n" + fileName, title);
}

bool StoreFaults::Tell(const TableResult& result, Telling telling) {
    if (!result.Failed()) {
        toldOf_ = result.fileName.isEmpty() ? toldOf_ : QString();
        return true;
    }
    if (telling == Telling::Box || (telling == Telling::Once && toldOf_ != result.fileName)) {
        toldOf_ = result.fileName;  // before the box: timers run while it stands
        desktop_.BusyOff();
        desktop_.MessageBox(Complaint(result.outcome) + u'\n' + result.fileName, QStringLiteral("Arbitrary Editor"));
    }
    return false;
}
