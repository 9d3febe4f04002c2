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
    const ProgramState& program = context_.program;
    QStringList held{program.SettingFileName.Name(), program.ConstructionFileName.Name(), context_.tables.DatabaseName};
    held.removeAll(QString());
    return held;
}

bool EditMode::ChooseAndCheck(Chooser choose) {
    FixedName& name = context_.program.ConstructionFileName;
    const FixedName former = name;
    QStringList held = HeldFiles();
    held.removeAll(former.Name());  // new construction data may take the place of the present one
    if (!choose({name, boxfile_, context_.desktop, held})) {
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
    context_.tables.DatabaseName = context_.program.ConstructionFileName.Name();
    context_.front.SetEditorCaptionSignal();
}

void EditMode::EditMemory() {
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
