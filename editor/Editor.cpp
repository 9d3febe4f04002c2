#include "editor/Editor.h"

#include <QCloseEvent>
#include <QFileInfo>

#include "editor/PenLook.h"
#include "waveform/Choices.h"
#include "waveform/ViewRules.h"
#include "widgets/Controls.h"
#include "widgets/FormPlace.h"
#include "widgets/PictureKeys.h"

namespace {

constexpr int kRedrawIntervalMs = 1000;

}  // namespace

Editor::Editor(const EditorServices& services)
    : program_(services.program),
      desktop_(services.desktop),
      host_(services.host),
      boxfile_(services.boxfile),
      tables_(services.program.SettingFileName, services.program.ConstructionFileName, services.program.memories),
      faults_(services.desktop) {
    setObjectName(QStringLiteral("Editor"));
    MakeControls();
    MakeTools(services);
    Arrange();
    ConnectControls();
    ConnectPictures();
    ConnectMenu();
    ConnectSteps();
    ConnectZoom();
}

void Editor::MakeTools(const EditorServices& services) {
    const EditorContext context{program_, desktop_, tables_};
    view_ = std::make_unique<EditorView>(program_.editor, *Picture1, *Picture2);
    pointer_ = std::make_unique<ViewPointer>(program_, *view_, strip_);
    entry_ = std::make_unique<PointEntry>(program_.editor, strip_,
                                          [this](double address, double value) { EnterNumbers(address, value); });
    mode_ = std::make_unique<EditMode>(context, services.boxfile);
    import_ = std::make_unique<Import>(context, *mode_, faults_, services.ziel);
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
    hint_ = new PenHint(paper_);

    opEditmode = std::make_unique<OptionGroup>(
        QStringLiteral("opEditmode"), QStringList{QStringLiteral("Edit memory"), QStringLiteral("Edit signal")},
        strip_);
    opEditmode->SetAccessibleName(QStringLiteral("What is edited"));
    QStringList pens;
    for (const PenLook& look : kPenLooks) {
        pens += QString::fromLatin1(look.caption);
    }
    opPenmode = std::make_unique<OptionGroup>(QStringLiteral("opPenmode"), pens, strip_);
    opPenmode->SetAccessibleName(QStringLiteral("Pen"));
    Opintmode = std::make_unique<OptionGroup>(QStringLiteral("Opintmode"),
                                              QStringList{QStringLiteral("Linear"), QStringLiteral("Spline")}, strip_);
    Opintmode->SetAccessibleName(QStringLiteral("Interpolation of the signal"));
    Marker = Named(new QCheckBox(QStringLiteral("V. points"), strip_), QStringLiteral("Marker"),
                   QStringLiteral("Show the points of the view as dots"));
    Marker->setToolTip(QStringLiteral("Show the points of the view as dots"));
    opFit = Named(new QPushButton(QStringLiteral("Fit copied to signal"), strip_), QStringLiteral("opFit"),
                  QStringLiteral("Fit the copied part to the whole signal"));
    opFit->setToolTip(QStringLiteral("Stretch what was copied over the whole axis, as the points of the signal"));
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setInterval(kRedrawIntervalMs);
    menu_ = std::make_unique<EditorMenu>(menuBar());
}

void Editor::ConnectControls() {
    EditorState& editor = program_.editor;
    connect(&Timer1, &QTimer::timeout, this, &Editor::Editor_Timer1_Timer);
    opEditmode->SetClick([this](int index) {
        mode_->opEditmode_Click(index);
        ShowChoices();
    });
    opPenmode->SetClick([this](int index) { Editor_opPenmode_Click(index); });
    Opintmode->SetClick([this, &editor](int index) {
        editor.SelectedInterpolation = static_cast<Interpolation>(index);
        DrawEditor();
    });
    connect(Marker, &QCheckBox::clicked, this, [&editor](bool checked) {
        editor.Markers = checked;
        editor.EditorRedrawPending = true;
    });
    connect(opFit, &QPushButton::clicked, this, [this] {
        import_->opFit_Click();
        ShowChoices();
    });
    for (QAbstractButton* const option : opPenmode->Options()) {
        option->installEventFilter(this);
    }
    paper_->installEventFilter(this);
}

void Editor::ConnectPictures() {
    connect(Picture1, &PictureBox::MouseMove, this,
            [this](int buttons, float x, float) { pointer_->DragView(buttons, x); });
    connect(Picture2, &PictureBox::MouseDown, this, &Editor::Editor_Picture2_MouseDown);
    connect(Picture2, &PictureBox::MouseMove, this, &Editor::Editor_Picture2_MouseMove);
    for (PictureBox* const picture : {Picture1, Picture2}) {
        connect(picture, &PictureBox::RedrawNeeded, this, [this] {
            view_->ForgetStrokes();
            program_.editor.CrossFresh = true;
            program_.editor.EditorRedrawPending = true;
        });
    }
    connect(Picture2, &PictureBox::RedrawNeeded, this, &Editor::ShowPen, Qt::QueuedConnection);  // another density
}

void Editor::ConnectMenu() {
    const auto onTrigger = [this](QAction* item, const auto& work) {
        connect(item, &QAction::triggered, this, [this, work] {
            work();
            ShowChoices();
        });
    };
    for (const auto& [item, size] : {std::pair(menu_->mnu4ksig, &kMemory4k), {menu_->mnu16ksig, &kMemory16k}}) {
        connect(item, &QAction::triggered, this, [this, size = size] {
            program_.editor.Size = size;
            DrawEditor();
        });
    }
    connect(menu_->mnuformula, &QAction::triggered, this, &Editor::Editor_mnuformula_Click);
    onTrigger(menu_->mnuncon, [this] { mode_->mnuncon_Click(); });
    onTrigger(menu_->mnulcon, [this] { mode_->mnulcon_Click(); });
    connect(menu_->mnusavecsv, &QAction::triggered, this, &Editor::Editor_mnusavecsv_Click);
    connect(menu_->mnudelete, &QAction::triggered, this, &Editor::Editor_mnudelete_Click);
    connect(menu_->mnulinint, &QAction::triggered, this, &Editor::Editor_mnulinint_Click);
    using Channel = Import::Channel;
    onTrigger(menu_->mnurdbincha, [this] { import_->ReadAndPaste(Channel::A); });
    onTrigger(menu_->mnuchamulti, [this] { import_->MultipleToMemory(Channel::A); });
    onTrigger(menu_->mnuchafit, [this] { import_->FitToSignal(Channel::A); });
    onTrigger(menu_->mnurdbinchb, [this] { import_->ReadAndPaste(Channel::B); });
    onTrigger(menu_->mnuchbmulti, [this] { import_->MultipleToMemory(Channel::B); });
    onTrigger(menu_->mnuchbfit, [this] { import_->FitToSignal(Channel::B); });
    connect(menu_->mnuopenrec, &QAction::triggered, this, &Editor::Editor_mnuopenrec_Click);
    setAcceptDrops(true);
}

void Editor::ConnectSteps() {
    connect(menu_->mnuundo, &QAction::triggered, this, [this] { TakeStep(Replay::Undo); });
    connect(menu_->mnuredo, &QAction::triggered, this, [this] { TakeStep(Replay::Redo); });
}

void Editor::ConnectZoom() {
    const auto onKeys = [this](const QList<QKeySequence>& keys, const auto& zoom) {
        auto* const action = new QAction(this);
        action->setShortcuts(keys);
        addAction(action);
        connect(action, &QAction::triggered, this, [this, zoom] {
            zoom();
            DrawSoon();
        });
    };
    onKeys({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { pointer_->Zoom(1.0); });
    onKeys({Qt::CTRL | Qt::Key_Minus}, [this] { pointer_->Zoom(-1.0); });
    onKeys({Qt::CTRL | Qt::Key_0}, [this] { SetView(program_.editor, {0, program_.editor.Size->LastAdr}); });
}

void Editor::Editor_Form_Load() {
    program_.editor.EditorOpen = true;
    BeginEditing(program_.editor);
    const Preferences& preferences = program_.preferences;
    SizeForm(*this, preferences.EditorWidth, preferences.EditorHeight);
    PlaceForm(*this, preferences.EditorLeft, preferences.EditorTop, preferences.EditorWindowState);
    WorkOn(EditTarget::Memory, program_.editor, tables_);
    ShowChoices();
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
    FollowByWindows();
}

void Editor::FollowSettingFile() {
    WorkOn(EditTarget::Memory, program_.editor, tables_);
    program_.editor.EditorRedrawPending = true;
    ShowChoices();
}

void Editor::ShowChoices() {
    const EditorState& editor = program_.editor;
    editor.Target == EditTarget::Memory ? SetEditorCaptionMemory() : SetEditorCaptionSignal();
    Opintmode->Show(static_cast<int>(editor.SelectedInterpolation));
    Marker->setChecked(editor.Markers);
    (editor.Size == &kMemory4k ? menu_->mnu4ksig : menu_->mnu16ksig)->setChecked(true);
    ShowSteps();
    FollowByWindows();
}

void Editor::ShowMode(EditTarget target) {
    setWindowTitle(u"Arbitrary Editor    " + tables_.DatabaseName);
    opEditmode->Show(static_cast<int>(target));
    const bool signal = target == EditTarget::Signal;
    for (std::size_t i = 0; i < kPenLooks.size(); ++i) {
        opPenmode->Option(static_cast<int>(i))->setEnabled(!signal || kPenLooks[i].inSignal);
    }
    for (QAbstractButton* const option : Opintmode->Options()) {
        option->setEnabled(signal);
    }
    menu_->mnuformula->setEnabled(!signal);
    ShowPen();
}

void Editor::ShowPen() {
    const EditorState& editor = program_.editor;
    opPenmode->Show(static_cast<int>(editor.SelectedPen));
    Picture2->setCursor(PenCursor(editor.SelectedPen, Picture2->devicePixelRatioF()));
    for (std::size_t i = 0; i < kPenLooks.size(); ++i) {
        opPenmode->Option(static_cast<int>(i))->setToolTip(QString::fromLatin1(kPenLooks[i].Hint(editor.Target)));
    }
    hint_->ShowPen(editor.SelectedPen, editor.Target);
}

void Editor::ShowSteps() {
    tables_.EndStepsOfOtherFiles();
    const QString former = menu_->mnuundo->text();
    const auto show = [this](QAction* item, const QString& caption, Replay way) {
        const EditStep* const step = tables_.History.Next(way);
        item->setText(step != nullptr ? caption + u' ' + QString::fromLatin1(step->name) : caption);
        item->setEnabled(step != nullptr);
    };
    show(menu_->mnuundo, QStringLiteral("&Undo"), Replay::Undo);
    show(menu_->mnuredo, QStringLiteral("&Redo"), Replay::Redo);
    if (const auto ending = tables_.History.TakeEnding()) {
        const QString why = ending->reason == EditHistory::Reason::AnotherFile
                                ? QStringLiteral(": the editor works on another file now.")
                                : QStringLiteral(": it was changed or replaced.");
        const QString what = QStringLiteral("Nothing more to undo in ");
        hint_->Tell(what + QFileInfo(ending->fileName).fileName() + why, what + ending->fileName + why);
    } else if (menu_->mnuundo->text() != former) {
        hint_->ShowPen(program_.editor.SelectedPen, program_.editor.Target);  // what was told is over
    }
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
