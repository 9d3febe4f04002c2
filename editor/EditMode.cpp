#include "editor/EditMode.h"

#include "storage/ConstructionFile.h"

namespace {

QString Complaint(ConstructionOutcome outcome) {
    switch (outcome) {
        case ConstructionOutcome::NotAConstructionFile:
            return QStringLiteral("This is not a construction file:");
        case ConstructionOutcome::Locked:
            return QStringLiteral("Another program has locked the file:");
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
    return worksOn_ == EditTarget::Memory ? QStringList{setting, context_.tables.DatabaseName} : QStringList{setting};
}

bool EditMode::ChooseAndCheck(Chooser choose) {
    FixedName& name = context_.program.ConstructionFileName;
    const FixedName former = name;
    // New construction data may take the place of the present one, but for a file that holds the memories too.
    if (!choose({name, boxfile_, context_.desktop, HeldSettingFiles()})) {
        return false;
    }
    const QString chosen = name.Name();
    const ConstructionOutcome outcome = CheckConstructionFile(chosen);
    if (outcome == ConstructionOutcome::Usable) {
        return true;
    }
    name = former;
    context_.desktop.BusyOff();
    context_.desktop.MessageBox(Complaint(outcome) + u'\n' + chosen, QStringLiteral("Arbitrary Editor"));
    context_.front.Select(EditTarget::Memory);
    return false;
}

void EditMode::EditSignal() {
    worksOn_ = EditTarget::Signal;
    context_.tables.DatabaseName = context_.program.ConstructionFileName.Name();
    context_.front.SetEditorCaptionSignal();
}

void EditMode::EditMemory() {
    worksOn_ = EditTarget::Memory;
    context_.tables.DatabaseName = context_.program.SettingFileName.Name();
    context_.front.SetEditorCaptionMemory();
}

const FixedName& EditMode::ShownFile() const {
    const ProgramState& program = context_.program;
    return context_.front.Target() == EditTarget::Memory ? program.SettingFileName : program.ConstructionFileName;
}

void EditMode::opEditmode_Click(int index) {
    if (index != 1) {
        EditMemory();
    } else if (EnsureConstruction()) {
        EditSignal();
    } else {
        context_.front.Select(EditTarget::Memory);
    }
    context_.program.editor.EditorRedrawPending = true;
    context_.desktop.BusyOff();
}

void EditMode::GoOverTo(Chooser choose) {
    if (ChooseAndCheck(choose)) {
        EditSignal();
        context_.program.editor.EditorRedrawPending = true;
    }
    context_.desktop.BusyOff();
}
