#pragma once

#include <QCheckBox>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "editor/ControlStrip.h"
#include "editor/EditMode.h"
#include "editor/EditorContext.h"
#include "editor/EditorHost.h"
#include "editor/EditorMenu.h"
#include "editor/Generation.h"
#include "editor/Import.h"
#include "editor/PenDrags.h"
#include "editor/Pens.h"
#include "editor/PointEntry.h"
#include "editor/ViewPointer.h"
#include "platform/OptionGroup.h"

// What the form Editor stands on. Tests bring their own.
struct EditorServices {
    ProgramState& program;
    Desktop& desktop;
    FileBox& boxfile;
    DdeLink& ziel;  // to the sibling program QD204
    EditorHost& host;
};

// The waveform editor: one form for each opening. Every edit goes to the open file at once; there is no save. It
// composes the tools, and holds what belongs to none of them: the look of the two modes, the size, opening, closing.
class Editor : public QMainWindow, private EditorFront {
    Q_OBJECT

  public:
    explicit Editor(const EditorServices& services);

    // Opens on the setting file, in "Edit memory", 4K. Shows nothing yet.
    void Editor_Form_Load();
    // Goes over to another setting file that was loaded.
    void FollowSettingFile();
    // The files that nothing else may take the place of while the editor is open.
    QStringList HeldFiles() const { return mode_->HeldFiles(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // EditorFront
    EditTarget Target() const override;
    Pen SelectedPen() const override { return static_cast<Pen>(opPenmode->Selected()); }
    bool SplineSelected() const override { return Opintmode->Selected() != 0; }
    const MemorySize& Size() const override { return menu_->mnu4ksig->isChecked() ? kMemory4k : kMemory16k; }
    void Select(EditTarget target) override { opEditmode->Select(static_cast<int>(target)); }
    void Select(Pen pen) override { opPenmode->Select(static_cast<int>(pen)); }
    void SetEditorCaptionMemory() override;
    void SetEditorCaptionSignal() override;
    void DrawEditor() override;

    void Editor_Form_Unload();
    void Editor_Form_Resize();
    void Editor_Timer1_Timer();
    void Editor_opPenmode_Click(int index);
    void Editor_Picture2_MouseDown(int button, float x, float y);
    void Editor_Picture2_MouseMove(int buttons, float x, float y);

    void MakeControls();
    void ConnectControls();
    void ConnectMenu();
    void ShowMode(const FixedName& file, EditTarget target);
    void ShowPen();

    // Layout (EditorLayout.cpp)
    void Arrange();
    void FillControlStrip();
    void OrderTabs();
    void ShowHint();

    ProgramState& program_;
    Desktop& desktop_;
    EditorHost& host_;

    QWidget* paper_ = nullptr;       // all below the menu
    PictureBox* Picture1 = nullptr;  // the whole address axis
    PictureBox* Picture2 = nullptr;  // the view, and the drawing surface of the pens
    ControlStrip* strip_ = nullptr;
    QLabel* hint_ = nullptr;  // what the pen does
    std::unique_ptr<OptionGroup> opEditmode;
    std::unique_ptr<OptionGroup> opPenmode;
    std::unique_ptr<OptionGroup> Opintmode;
    QCheckBox* Marker = nullptr;
    QPushButton* opFit = nullptr;
    QTimer Timer1{this};
    std::unique_ptr<EditorMenu> menu_;

    EditorTables tables_;
    std::unique_ptr<EditorView> view_;
    std::unique_ptr<ViewPointer> pointer_;
    std::unique_ptr<Pens> pens_;
    std::unique_ptr<PenDrags> drags_;
    std::unique_ptr<PointEntry> entry_;
    std::unique_ptr<Generation> generation_;
    std::unique_ptr<EditMode> mode_;
    std::unique_ptr<Import> import_;
};
