#include "editor/EditMode.h"

#include "editor/StoreFaults.h"
#include "storage/ConstructionFile.h"
#include "waveform/Choices.h"

namespace {

QString Complaint(ConstructionOutcome outcome) {
    switch (outcome) {
        case ConstructionOutcome::NotAConstructionFile:
            return QStringLiteral("This is not a construction file:");
        case ConstructionOutcome::Locked:
            return ::Complaint(StoreOutcome::Locked);
        default:
            return QStringLiteral("The file can't be opened:");
    }
}

}  // namespace

QStringList EditMode::HeldFiles() const {
    const QString construction = context_.program.ConstructionFileName.Name();
    return construction.isEmpty() ? HeldSettingFiles() : HeldSettingFiles() << construction;
}

// After a save under another name, Data1 stays on the former file.
QStringList EditMode::HeldSettingFiles() const {
    const QString setting = context_.program.SettingFileName.Name();
    return context_.program.editor.Target == EditTarget::Memory ? QStringList{setting, context_.tables.DatabaseName}
                                                                : QStringList{setting};
}

bool EditMode::ChooseAndCheck(Chooser choose) {
    // New construction data may take the place of the present one, but for a file that holds the memories too.
    const FixedName chosen =
        choose({context_.program.ConstructionFileName, boxfile_, context_.desktop, HeldSettingFiles()});
    const QString name = chosen.Name();
    if (name.isEmpty()) {
        return false;
    }
    const ConstructionOutcome outcome = CheckConstructionFile(name);
    if (outcome == ConstructionOutcome::Usable) {
        context_.program.ConstructionFileName = chosen;
        return true;
    }
    context_.desktop.BusyOff();
    context_.desktop.MessageBox(Complaint(outcome) + u'\n' + name, QStringLiteral("Arbitrary Editor"));
    if (context_.program.editor.Target != EditTarget::Memory) {
        WorkOn(EditTarget::Memory, context_.program.editor, context_.tables);
    }
    return false;
}

void EditMode::opEditmode_Click(int index) {
    const bool signal = index == 1 && EnsureConstruction();
    WorkOn(signal ? EditTarget::Signal : EditTarget::Memory, context_.program.editor, context_.tables);
    context_.program.editor.EditorRedrawPending = true;
    context_.desktop.BusyOff();
}

void EditMode::GoOverTo(Chooser choose) {
    if (ChooseAndCheck(choose)) {
        WorkOn(EditTarget::Signal, context_.program.editor, context_.tables);
        context_.program.editor.EditorRedrawPending = true;
    }
    context_.desktop.BusyOff();
}
