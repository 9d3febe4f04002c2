// What an event of the form runs: an operation on the state and the tables, and then what shows its result.

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QWheelEvent>
#include <utility>

#include "editor/Editor.h"
#include "editor/HeldFiles.h"
#include "storage/TableText.h"
#include "waveform/Choices.h"
#include "waveform/Entry.h"
#include "waveform/Generation.h"
#include "waveform/Pens.h"
#include "waveform/Redraw.h"
#include "waveform/ViewRules.h"

namespace {

constexpr double kWheelStep = 120.0;  // of a notch of the wheel, in eighths of a degree
constexpr int kLeastTurn = 30;        // of a touchpad: what is less would be lost in whole addresses

// The one local file that is dragged; empty for anything else.
QString DraggedFile(const QMimeData* dragged) {
    const QList<QUrl> urls = dragged->urls();
    QUrl file = urls.size() == 1 ? urls.first() : QUrl();
    if (file.host().compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0) {
        file.setHost(QString());  // some file managers name the computer; else it would be part of the path
    }
    return file.isLocalFile() ? file.toLocalFile() : QString();
}

}  // namespace

void Editor::DrawEditor() {
    EditorState& editor = program_.editor;
    desktop_.BusyOn();
    BeginRedraw(editor);
    hint_->ShowView(editor);
    view_->Clear();
    std::vector<Record> records;
    if (faults_.Tell(tables_.Read(tables_.FileOf(editor.Target), *editor.Size, records), Telling::Once)) {
        TakeRecords(records, editor, program_.memories);
        view_->Draw(records);
    }
    ShowSteps();
    desktop_.BusyOff();
}

// Any number of calls in one turn of the event loop make one redraw.
void Editor::DrawSoon() {
    program_.editor.EditorRedrawPending = true;
    QMetaObject::invokeMethod(this, &Editor::Editor_Timer1_Timer, Qt::QueuedConnection);
}

// Any number of requests make one redraw. It may come in the middle of a transfer or an import, whose hourglass stays.
void Editor::Editor_Timer1_Timer() {
    FollowByWindows();
    if (program_.editor.EditorOpen && std::exchange(program_.editor.EditorRedrawPending, false)) {
        const bool busy = desktop_.Busy();
        DrawEditor();
        if (busy) {
            desktop_.BusyOn();
        }
    }
}

void Editor::Editor_opPenmode_Click(int index) {
    TakeUp(static_cast<Pen>(index), program_.editor);
    ShowPen();
}

void Editor::Editor_Picture2_MouseDown(int button, float x, float y) {
    EditorState& editor = program_.editor;
    if (button == 2) {
        pointer_->Page(x);
        DrawEditor();
    } else if (button == 1) {
        const TableResult result = PressPen(editor, tables_, x, y);
        if (!faults_.Tell(result, Telling::Box) || result.changed) {
            DrawEditor();
        } else if (!editor.LineActive) {
            view_->ShowBand({});
        }
    }
}

void Editor::Editor_Picture2_MouseMove(int buttons, float x, float y) {
    EditorState& editor = program_.editor;
    const float heldX = ClampX(x, {editor.ViewLeft, editor.ViewRight});
    const float heldY = ClampY(y);
    pointer_->ShowPosition(heldX, heldY);
    if (editor.LineActive) {
        StretchLine(editor, heldX, heldY);
        view_->ShowBand(LineBand(editor, editor.Size->samples(program_.memories)));
    }
    DragPen(buttons, heldX);
}

void Editor::DragPen(int buttons, float x) {
    EditorState& editor = program_.editor;
    switch (NextDragStep(editor, buttons)) {
        case DragStep::None:
            break;
        case DragStep::Copy:
            if (const auto box = CopyStep(editor, x)) {
                view_->ShowDragBox(*box);
            } else {
                view_->ForgetDragBox();  // one that a drag too short has left stays until the redraw
            }
            break;
        case DragStep::EndCopy:
            if (EndCopy(editor, editor.Size->samples(program_.memories), x)) {
                editor.EditorRedrawPending = true;
            }
            break;
        case DragStep::Paste:
            view_->ShowDragBox(PasteStep(editor, x));
            break;
        case DragStep::EndPaste:
            desktop_.BusyOn();
            faults_.Tell(EndPaste(editor, tables_), Telling::Box);
            desktop_.BusyOff();
            ShowSteps();
            editor.EditorRedrawPending = true;
            break;
    }
}

void Editor::EnterNumbers(double address, double value) {
    faults_.Tell(EnterPoint(program_.editor, tables_, address, value), Telling::Silent);
    DrawEditor();
}

void Editor::Editor_mnudelete_Click() {
    if (!desktop_.Question(QStringLiteral("Are you sure to set all Values to zero?"),
                           QStringLiteral("Arbitrary Editor"), Desktop::Default::No)) {
        return;
    }
    desktop_.BusyOn();
    faults_.Tell(ClearTable(program_.editor, tables_), Telling::Box);
    DrawEditor();
}

// Other events run before it returns.
void Editor::Editor_mnulinint_Click() {
    EditorState& editor = program_.editor;
    desktop_.BusyOn();
    const TableResult result = GenerateMemory(editor, tables_, program_.memories);
    if (faults_.Tell(result, Telling::Box) && result.changed) {
        WorkOn(EditTarget::Memory, editor, tables_);
        ShowChoices();
        DrawEditor();
        QCoreApplication::processEvents();
    }
    desktop_.BusyOff();
}

void Editor::Editor_mnuformula_Click() {
    formula_ = new FormulaWindow({program_, desktop_, tables_}, faults_, this);
    connect(formula_, &QDialog::accepted, this, &Editor::DrawEditor);
    formula_->open();
}

void Editor::Editor_mnuopenrec_Click() {
    boxfile_.FileName = QStringLiteral("*.csv");
    const QString chosen = boxfile_.ShowOpen(
        {.title = QStringLiteral("Open recording"),
         .filter = QStringLiteral("Recordings (*.csv *.txt *.tsv *.dat *.CSV *.TXT *.TSV *.DAT);;All files (*) |*.csv"),
         .extension = QStringLiteral("csv")});
    if (!chosen.isEmpty()) {
        OpenRecording(chosen);
    }
}

// The editor may have been closed behind the file dialog, and a second file dropped on it.
void Editor::OpenRecording(const QString& fileName) {
    if (!program_.editor.EditorOpen || recording_ != nullptr) {
        return;
    }
    recording_ = new RecordingWindow({program_, desktop_, tables_}, *mode_, faults_, fileName, this);
    connect(recording_, &QDialog::accepted, this, [this] {
        ShowChoices();
        DrawEditor();
    });
    connect(recording_, &QDialog::rejected, this, [this] {
        if (program_.editor.EditorOpen) {
            ShowChoices();  // a construction file that was no good may have ended "Edit signal"
        }
    });
    recording_->open();
}

// The panel stays in use beside these windows: it may load another file, or save to one.
void Editor::FollowByWindows() {
    if (formula_ != nullptr) {
        formula_->FollowEditor();
    }
    if (recording_ != nullptr) {
        recording_->FollowEditor();
    }
}

void Editor::Editor_mnusavecsv_Click() {
    const QString title = QStringLiteral("Save as CSV");
    boxfile_.FileName = QStringLiteral("*.csv");
    const QString chosen = boxfile_.ShowSave(
        {.title = title, .filter = QStringLiteral("CSV (*.csv) |*.csv"), .extension = QStringLiteral("csv")});
    if (chosen.isEmpty() || RefuseHeld(chosen, mode_->HeldFiles(), desktop_, title)) {
        return;
    }
    const EditorState& editor = program_.editor;
    std::vector<Record> records;
    if (faults_.Tell(tables_.Read(tables_.FileOf(editor.Target), *editor.Size, records), Telling::Box) &&
        !SaveTableText(chosen, records)) {
        TellNotWritten(desktop_, chosen, title);
    }
}

void Editor::DropPen() {
    if (DropUnderWay(program_.editor)) {
        DrawEditor();
    }
}

void Editor::TakeStep(Replay way) {
    if (host_.RefuseWhileRunning()) {
        return;
    }
    DropUnderWay(program_.editor);
    tables_.EndStepsOfOtherFiles();
    TableResult result;
    const EditStep* const step = tables_.History.Next(way);
    if (step != nullptr && GoTo(step->target, *step->size)) {
        tables_.EndStepsOfOtherFiles();  // that target may have another file by now
        if (tables_.History.Next(way) == step) {
            desktop_.BusyOn();
            result = tables_.Step(way);
            faults_.Tell(result, result.outcome == StoreOutcome::ChangedSince ? Telling::Silent : Telling::Box);
            desktop_.BusyOff();
        }
    }
    ShowChoices();
    DrawEditor();
    // Behind settings that were saved under another name, Data1 and its steps stay on the former file.
    if (const QString shown = tables_.FileOf(program_.editor.Target); result.changed && result.fileName != shown) {
        const QString done = way == Replay::Undo ? QStringLiteral("Undone in ") : QStringLiteral("Redone in ");
        hint_->Tell(done + QFileInfo(result.fileName).fileName() + u"; shown is " + QFileInfo(shown).fileName() + u'.',
                    done + result.fileName + u"; shown is " + shown + u'.');
    }
}

// As a user would go there. False if the file for it is no good; it was told why.
bool Editor::GoTo(EditTarget target, const MemorySize& size) {
    EditorState& editor = program_.editor;
    if (editor.Target != target) {
        mode_->opEditmode_Click(static_cast<int>(target));
    }
    editor.Size = editor.Target == target ? &size : editor.Size;
    return editor.Target == target;
}

// In the editor Escape belongs to the pens alone.
void Editor::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        DropPen();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void Editor::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QMainWindow::wheelEvent(event);
        return;
    }
    turned_ += event->angleDelta().y();
    if (std::abs(turned_) >= kLeastTurn) {
        pointer_->Zoom(std::exchange(turned_, 0) / kWheelStep);
        DrawSoon();
    }
}

// Not while a window that is to be answered first stands before the editor.
void Editor::dragEnterEvent(QDragEnterEvent* event) {
    if (QApplication::activeModalWidget() == nullptr && !DraggedFile(event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void Editor::dropEvent(QDropEvent* event) {
    const QString fileName = DraggedFile(event->mimeData());
    if (QApplication::activeModalWidget() != nullptr || fileName.isEmpty() || host_.RefuseWhileRunning()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    activateWindow();
    OpenRecording(fileName);
}
