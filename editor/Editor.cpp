#include "editor/Editor.h"

#include <QCloseEvent>
#include <utility>

#include "editor/PenLook.h"
#include "editor/ViewRules.h"
#include "platform/Controls.h"
#include "platform/FormPlace.h"
#include "platform/PictureKeys.h"

namespace {

constexpr int kRedrawIntervalMs = 1000;

}  // namespace

Editor::Editor(const EditorServices& services)
    : program_(services.program), desktop_(services.desktop), host_(services.host), tables_(services.desktop) {
    setObjectName(QStringLiteral("Editor"));
    MakeControls();
    view_ = std::make_unique<EditorView>(program_.editor, program_.memories, *Picture1, *Picture2);
    const EditorContext context{program_, desktop_, *this, tables_, *view_};
    pointer_ = std::make_unique<ViewPointer>(context, strip_);
    pens_ = std::make_unique<Pens>(context);
    drags_ = std::make_unique<PenDrags>(context);
    entry_ = std::make_unique<PointEntry>(context, strip_);
    mode_ = std::make_unique<EditMode>(context, services.boxfile);
    generation_ = std::make_unique<Generation>(context, *mode_);
    import_ = std::make_unique<Import>(context, *mode_, services.ziel);
    Arrange();
    ConnectControls();
    ConnectMenu();
}

void Editor::MakeControls() {
    setCentralWidget(new QWidget(this));
    paper_ = new QWidget(centralWidget());
    Picture1 = Named(new PictureBox(paper_), QStringLiteral("Picture1"),
                     QStringLiteral("The whole waveform; a drag chooses the part shown enlarged"));
    Picture1->setToolTip(QStringLiteral("Drag to choose the part shown below"));
    strip_ = new ControlStrip(paper_);
    Picture2 = Named(new PictureBox(paper_), QStringLiteral("Picture2"),
                     QStringLiteral("Part of the waveform, enlarged, for drawing"));
    for (PictureBox* const picture : {Picture1, Picture2}) {
        new PictureKeys(*picture);
    }
    hint_ = MakeLabel(QStringLiteral("hint"), QString(), paper_);

    opEditmode = std::make_unique<OptionGroup>(
        QStringLiteral("opEditmode"), QStringList{QStringLiteral("Edit memory"), QStringLiteral("Edit signal")},
        strip_);
    opEditmode->SetAccessibleName(QStringLiteral("What is edited"));
    opPenmode = std::make_unique<OptionGroup>(QStringLiteral("opPenmode"),
                                              QStringList{QStringLiteral("Set Point/Line"), QStringLiteral("Delete"),
                                                          QStringLiteral("Copy"), QStringLiteral("Paste")},
                                              strip_);
    opPenmode->SetAccessibleName(QStringLiteral("Pen"));
    Opintmode = std::make_unique<OptionGroup>(QStringLiteral("Opintmode"),
                                              QStringList{QStringLiteral("Linear"), QStringLiteral("Spline")}, strip_);
    Opintmode->SetAccessibleName(QStringLiteral("Interpolation of the signal"));
    Marker = Named(new QCheckBox(QStringLiteral("V. points"), strip_), QStringLiteral("Marker"),
                   QStringLiteral("Show the points of the view as dots"));
    Marker->setToolTip(QStringLiteral("Show the points of the view as dots"));
    opFit = Named(new QPushButton(QStringLiteral("Fit copied to signal"), strip_), QStringLiteral("opFit"),
                  QStringLiteral("Fit the copied stretch to the whole signal"));
    opFit->setToolTip(QStringLiteral("Stretch what was copied over the whole axis, as the points of the signal"));
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setInterval(kRedrawIntervalMs);
    menu_ = std::make_unique<EditorMenu>(menuBar());
}

void Editor::ConnectControls() {
    const auto requestRedraw = [this] { program_.editor.EditorRedrawPending = true; };
    connect(&Timer1, &QTimer::timeout, this, &Editor::Editor_Timer1_Timer);
    connect(Marker, &QCheckBox::clicked, this, requestRedraw);
    connect(Picture1, &PictureBox::MouseMove, this,
            [this](int buttons, float x, float) { pointer_->DragView(buttons, x); });
    connect(Picture2, &PictureBox::MouseDown, this, &Editor::Editor_Picture2_MouseDown);
    connect(Picture2, &PictureBox::MouseMove, this, &Editor::Editor_Picture2_MouseMove);
    for (PictureBox* const picture : {Picture1, Picture2}) {
        connect(picture, &PictureBox::RedrawNeeded, this, [this, requestRedraw] {
            view_->ForgetStrokes();
            requestRedraw();
        });
    }
    connect(Picture2, &PictureBox::RedrawNeeded, this, &Editor::ShowPen, Qt::QueuedConnection);  // another density
    opEditmode->Select(0);
    opPenmode->Select(0);
    Opintmode->Select(0);
    opEditmode->SetClick([this](int index) { mode_->opEditmode_Click(index); });
    opPenmode->SetClick([this](int index) { Editor_opPenmode_Click(index); });
    Opintmode->SetClick([this](int) { DrawEditor(); });
    connect(opFit, &QPushButton::clicked, this, [this] { import_->opFit_Click(); });
    for (QAbstractButton* const option : opPenmode->Options()) {
        option->installEventFilter(this);
    }
    paper_->installEventFilter(this);
}

void Editor::ConnectMenu() {
    for (QAction* const size : {menu_->mnu4ksig, menu_->mnu16ksig}) {
        connect(size, &QAction::triggered, this, [this] { DrawEditor(); });
    }
    connect(menu_->mnuncon, &QAction::triggered, this, [this] { mode_->mnuncon_Click(); });
    connect(menu_->mnulcon, &QAction::triggered, this, [this] { mode_->mnulcon_Click(); });
    connect(menu_->mnudelete, &QAction::triggered, this, [this] { generation_->mnudelete_Click(); });
    connect(menu_->mnulinint, &QAction::triggered, this, [this] { generation_->mnulinint_Click(); });
    const auto onImport = [this](QAction* item, void (Import::*use)(Import::Channel), Import::Channel read) {
        connect(item, &QAction::triggered, this, [this, use, read] { (*import_.*use)(read); });
    };
    onImport(menu_->mnurdbincha, &Import::ReadAndPaste, &Import::ReadDdeChannelA);
    onImport(menu_->mnuchamulti, &Import::MultipleToMemory, &Import::ReadDdeChannelA);
    onImport(menu_->mnuchafit, &Import::FitToSignal, &Import::ReadDdeChannelA);
    onImport(menu_->mnurdbinchb, &Import::ReadAndPaste, &Import::ReadDdeChannelB);
    onImport(menu_->mnuchbmulti, &Import::MultipleToMemory, &Import::ReadDdeChannelB);
    onImport(menu_->mnuchbfit, &Import::FitToSignal, &Import::ReadDdeChannelB);
}

void Editor::Editor_Form_Load() {
    EditorState& editor = program_.editor;
    editor.EditorOpen = true;
    menu_->mnu4ksig->setChecked(true);
    Marker->setChecked(true);
    editor.ViewLeft = kFirstView.left;
    editor.ViewRight = kFirstView.right;
    editor.ZoomDragging = false;
    editor.LineActive = false;
    editor.CopyDragging = false;
    editor.PasteDragging = false;
    const Preferences& preferences = program_.preferences;
    SizeForm(*this, preferences.EditorWidth, preferences.EditorHeight);
    PlaceForm(*this, preferences.EditorLeft, preferences.EditorTop, preferences.EditorWindowState);
    mode_->EditMemory();
    Timer1.start();
}

void Editor::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first picture need not wait for the timer's first second.
    QMetaObject::invokeMethod(this, &Editor::Editor_Timer1_Timer, Qt::QueuedConnection);
}

void Editor::closeEvent(QCloseEvent* event) {
    if (program_.editor.EditorOpen && host_.RefuseWhileRunning()) {
        event->ignore();
        return;
    }
    if (program_.editor.EditorOpen) {
        Editor_Form_Unload();
    }
    event->accept();
}

void Editor::Editor_Form_Unload() {
    Timer1.stop();
    Preferences& preferences = program_.preferences;
    preferences.EditorWindowState = WindowStateNumber(*this);
    if (preferences.EditorWindowState == 0) {
        preferences.EditorTop = FormTop(*this);
        preferences.EditorLeft = FormLeft(*this);
        preferences.EditorWidth = FormWidth(*this);
        preferences.EditorHeight = FormHeight(*this);
    }
    desktop_.BusyOn();
    host_.LoadSettingFile();
    host_.DrawOverviewSignal();
    desktop_.BusyOff();
    program_.editor.EditorOpen = false;
}

void Editor::FollowSettingFile() {
    mode_->EditMemory();
    program_.editor.EditorRedrawPending = true;
}

EditTarget Editor::Target() const { return opEditmode->Selected() == 0 ? EditTarget::Memory : EditTarget::Signal; }

void Editor::SetEditorCaptionMemory() { ShowMode(program_.SettingFileName, EditTarget::Memory); }

void Editor::SetEditorCaptionSignal() { ShowMode(program_.ConstructionFileName, EditTarget::Signal); }

// Selecting the other mode runs its click routine, nested.
void Editor::ShowMode(const FixedName& file, EditTarget target) {
    setWindowTitle(u"Arbitrary Editor    " + file.Name());
    Select(target);
    Select(Pen::Draw);
    const bool signal = target == EditTarget::Signal;
    opPenmode->Option(static_cast<int>(Pen::Copy))->setEnabled(!signal);
    for (QAbstractButton* const option : Opintmode->Options()) {
        option->setEnabled(signal);
    }
    ShowPen();
}

void Editor::ShowPen() {
    Picture2->setCursor(PenCursor(SelectedPen(), Picture2->devicePixelRatioF()));
    for (const Pen pen : {Pen::Draw, Pen::Delete, Pen::Copy, Pen::Paste}) {
        opPenmode->Option(static_cast<int>(pen))->setToolTip(PenHint(pen, Target()));
    }
    ShowHint();
}

// Nothing was copied yet: there is nothing to paste.
void Editor::Editor_opPenmode_Click(int index) {
    if (index == static_cast<int>(Pen::Paste) && program_.editor.CopyEnd == program_.editor.CopyStart) {
        Select(Pen::Copy);
    }
    ShowPen();
}

void Editor::DrawEditor() {
    const QString file = mode_->ShownFile().Name();
    if (file.isEmpty()) {
        return;  // the user is still being asked for the construction file
    }
    desktop_.BusyOn();
    program_.editor.PasteDragging = false;
    program_.editor.CopyDragging = false;
    view_->Clear(Size());
    std::vector<Record> records;
    if (tables_.Read(file, Size(), records, Telling::Once)) {
        view_->Draw({Size(), Target(), SplineSelected(), Marker->isChecked(), records});
    }
    desktop_.BusyOff();
}

// Any number of requests make one redraw. It may come in the middle of a transfer or an import, whose hourglass stays.
void Editor::Editor_Timer1_Timer() {
    if (program_.editor.EditorOpen && std::exchange(program_.editor.EditorRedrawPending, false)) {
        const bool busy = desktop_.Busy();
        DrawEditor();
        if (busy) {
            desktop_.BusyOn();
        }
    }
}

void Editor::Editor_Picture2_MouseDown(int button, float x, float y) {
    if (button == 2) {
        pointer_->Page(x);
    } else if (button == 1) {
        pens_->Press(x, y);
    }
}

void Editor::Editor_Picture2_MouseMove(int buttons, float x, float y) {
    const float heldX = ClampX(x, {program_.editor.ViewLeft, program_.editor.ViewRight});
    const float heldY = ClampY(y);
    pointer_->ShowPosition(heldX, heldY);
    drags_->Move(buttons, heldX, heldY);
}

bool Editor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == paper_) {
        if (event->type() == QEvent::Resize && !isMinimized()) {
            Editor_Form_Resize();
        }
    } else if (event->type() == QEvent::MouseButtonRelease) {
        // Behind the choice of a pen the keyboard goes on with the address. The choice comes first: an option that
        // loses the focus while it is held down takes no click.
        watched->event(event);
        TakeFocus(entry_->Text1[0]);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}
