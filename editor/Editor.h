#pragma once

#include <QCheckBox>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "editor/ControlStrip.h"
#include "editor/EditMode.h"
#include "editor/EditorContext.h"
#include "editor/EditorHost.h"
#include "editor/EditorMenu.h"
#include "editor/EditorView.h"
#include "editor/FormulaWindow.h"
#include "editor/Import.h"
#include "editor/PenHint.h"
#include "editor/PointEntry.h"
#include "editor/RecordingWindow.h"
#include "editor/StoreFaults.h"
#include "editor/ViewPointer.h"
#include "widgets/OptionGroup.h"

// What the form Editor needs. Tests provide their own.
struct EditorServices {
    ProgramState& program;
    Desktop& desktop;
    FileBox& boxfile;
    DdeLink& ziel;  // to the sibling program QD204
    EditorHost& host;
};

// The waveform editor: one form for each opening. Every edit goes to the open file at once; there is no save. A control
// writes what is chosen into the state, an event runs an operation of waveform/, and the form shows what came of it.
class Editor : public QMainWindow {
    Q_OBJECT

  public:
    explicit Editor(const EditorServices& services);

    // Opens on the setting file, in "Edit memory", 4K. Shows nothing yet.
    void Editor_Form_Load();
    // Goes over to another setting file that was loaded.
    void FollowSettingFile();
    // The files that nothing else may take the place of while the editor is open.
    QStringList HeldFiles() const { return mode_->HeldFiles(); }
    // True while it must not make room for another one, though it may be closed.
    bool Waiting() const { return import_->Waiting(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Editor_Form_Unload();
    void Editor_Form_Resize();

    void MakeControls();
    void MakeTools(const EditorServices& services);
    void ConnectControls();
    void ConnectPictures();
    void ConnectMenu();
    void ConnectSteps();
    void ConnectZoom();

    // Shows what is chosen in the state.
    void ShowChoices();
    void SetEditorCaptionMemory() { ShowMode(EditTarget::Memory); }
    void SetEditorCaptionSignal() { ShowMode(EditTarget::Signal); }
    void ShowMode(EditTarget target);
    void ShowPen();
    void ShowSteps();

    // What runs an operation and shows what came of it (EditorEvents.cpp)
    void Editor_Timer1_Timer();
    void Editor_opPenmode_Click(int index);
    void Editor_Picture2_MouseDown(int button, float x, float y);
    void Editor_Picture2_MouseMove(int buttons, float x, float y);
    void Editor_mnudelete_Click();
    void Editor_mnulinint_Click();
    void Editor_mnuformula_Click();
    void Editor_mnuopenrec_Click();
    void OpenRecording(const QString& fileName);
    void FollowByWindows();
    void Editor_mnusavecsv_Click();
    void DropPen();
    void TakeStep(Replay way);
    bool GoTo(EditTarget target, const MemorySize& size);
    void DragPen(int buttons, float x);
    void EnterNumbers(double address, double value);
    void DrawEditor();
    void DrawSoon();

    // Layout (EditorLayout.cpp)
    void Arrange();
    void FillControlStrip();
    void OrderTabs();

    ProgramState& program_;
    Desktop& desktop_;
    EditorHost& host_;
    FileBox& boxfile_;

    QWidget* paper_ = nullptr;       // all below the menu
    PictureBox* Picture1 = nullptr;  // the whole address axis
    PictureBox* Picture2 = nullptr;  // the view, and the drawing surface of the pens
    ControlStrip* strip_ = nullptr;
    PenHint* hint_ = nullptr;
    std::unique_ptr<OptionGroup> opEditmode;
    std::unique_ptr<OptionGroup> opPenmode;
    std::unique_ptr<OptionGroup> Opintmode;
    QCheckBox* Marker = nullptr;
    QPushButton* opFit = nullptr;
    QTimer Timer1{this};
    int turned_ = 0;  // of the wheel with Ctrl, not yet zoomed
    std::unique_ptr<EditorMenu> menu_;

    EditorTables tables_;
    StoreFaults faults_;
    std::unique_ptr<EditorView> view_;
    std::unique_ptr<ViewPointer> pointer_;
    std::unique_ptr<PointEntry> entry_;
    std::unique_ptr<EditMode> mode_;
    std::unique_ptr<Import> import_;
    QPointer<FormulaWindow> formula_;      // while it stands
    QPointer<RecordingWindow> recording_;  // likewise
};
