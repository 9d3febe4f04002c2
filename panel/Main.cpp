#include "panel/Main.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTabWidget>
#include <utility>

#include "editor/Editor.h"
#include "overview/AboutForm.h"
#include "overview/GuideForm.h"
#include "panel/Comset.h"
#include "panel/FrequencyGroup.h"
#include "panel/HintLine.h"
#include "panel/LevelGroup.h"
#include "panel/LinkView.h"
#include "panel/MainMenu.h"
#include "panel/ModeGroup.h"
#include "panel/ModulationGroup.h"
#include "panel/OutputGroup.h"
#include "panel/OverviewGroup.h"
#include "panel/PreferencesFile.h"
#include "panel/SweepGroup.h"
#include "panel/TransferBar.h"
#include "panel/TransferMenu.h"
#include "storage/SettingFile.h"
#include "widgets/FormPlace.h"

Main::Main(const MainServices& services)
    : services_(services),
      program_(services.program),
      desktop_(services.desktop),
      link_(services.program, services.com, services.clock, services.desktop, *this),
      boxfile(services.desktop),
      settingFiles_(services.program, boxfile, services.desktop),
      inputHold_(services.desktop) {
    setObjectName(QStringLiteral("Main"));
    MakeControls();
    MakeGroups();
    Arrange();
    ConnectControls();
    ConnectMenu();
    ConnectKeys();
}

Main::~Main() = default;

void Main::MakeControls() {
    auto* const centre = new QWidget(this);
    setCentralWidget(centre);
    hint_ = new HintLine(desktop_, centre);
    status = new TransferBar([this] { return link_.memory.Progress(); }, centre);
    panel_ = new QWidget(centre);
    SSTab1 = Named(new QTabWidget(panel_), QStringLiteral("SSTab1"), QStringLiteral("Overview, modulation and mode"));
    SSTab1->tabBar()->setFocusPolicy(Qt::StrongFocus);  // a click on a tab leaves the entry field, which commits
    outputColumn_ = new QWidget(panel_);
    overviewTab_ = new QWidget(SSTab1);
    modulationTab_ = new QWidget(SSTab1);
    modeTab_ = new QWidget(SSTab1);
    cRM = Named(new QCheckBox(QStringLiteral("Remote On"), panel_), QStringLiteral("cRM"),
                QStringLiteral("Remote On: link to the instrument"));
    Command3 = Named(new QPushButton(QStringLiteral("Read"), panel_), QStringLiteral("Command3"),
                     QStringLiteral("Read all settings from the instrument"));
    Command4 = Named(new QPushButton(QStringLiteral("Set"), panel_), QStringLiteral("Command4"),
                     QStringLiteral("Set the instrument to all settings"));
    Command3->setToolTip(QStringLiteral("Read all settings from the instrument (F5)"));
    Command4->setToolTip(QStringLiteral("Set the instrument to all settings, and read them back (Ctrl+Return)"));
    Command7 = Named(new QPushButton(QStringLiteral("Set time and date"), panel_), QStringLiteral("Command7"),
                     QStringLiteral("Set the instrument's time and date to those of the PC"));
    Command7->setToolTip(QStringLiteral("Transmit the PC-Time and date to the KL5276-x"));
    menu_ = std::make_unique<MainMenu>(menuBar());
    transfers_ = std::make_unique<TransferMenu>(link_.memory, *menu_->mnuverify, desktop_,
                                                [this](const QString& hint) { FlashMessage(hint); });
}

void Main::MakeGroups() {
    const PanelContext context{program_.panel, program_.numbers, *hint_, [this] { return !rebuilding_; }};
    overview_ = std::make_unique<OverviewGroup>(program_, desktop_, overviewTab_);
    const auto showLimit = [this](const QString& toolTip) {
        modulation_->ShowLimit(toolTip);
        sweep_->ShowLimit(toolTip);
    };
    frequency_ = std::make_unique<FrequencyGroup>(
        context, FrequencyGroup::Followers{showLimit, [this] { DrawOverviewSignal(); }}, outputColumn_);
    level_ = std::make_unique<LevelGroup>(context, outputColumn_);
    output_ = std::make_unique<OutputGroup>(program_.panel, link_, outputColumn_);
    modulation_ = std::make_unique<ModulationGroup>(
        context, [this] { level_->RefreshLevel(); }, modulationTab_);
    sweep_ = std::make_unique<SweepGroup>(context, modeTab_);
    mode_ = std::make_unique<ModeGroup>(program_.panel, modeTab_);
    linkView_ =
        std::make_unique<LinkView>(LinkView::Parts{program_, link_.transport, *Command4, services_.portFound},
                                   frequency_->ShownFields() + level_->ShownFields() + output_->ShownFields() +
                                       modulation_->ShownFields() + sweep_->ShownFields() + mode_->ShownFields(),
                                   centralWidget());
}

void Main::Main_Form_Load() {
    ShowCaption(OfflineCaption());
    Preferences& preferences = program_.preferences;
    LoadPreferences(services_.programFolder, preferences, desktop_);
    PlaceForm(*this, preferences.MainLeft, preferences.MainTop, preferences.MainWindowState);
    RefreshPanel();
}

void Main::RefreshPanel() {
    const QScopedValueRollback rebuilding(rebuilding_, true);
    sweep_->RefreshSweep();
    mode_->RefreshMode();
    mode_->RefreshReference();
    frequency_->RefreshSignal();
    frequency_->RefreshFrequency();
    overview_->RefreshOverview();
    output_->RefreshOutput();
    level_->RefreshLevel();
    modulation_->RefreshModulation();
    linkView_->RefreshSoon();
}

void Main::closeEvent(QCloseEvent* event) {
    if (link_.gate.Running()) {
        closeWhenFree_ = true;
        link_.gate.Abandon();
        event->ignore();
        return;
    }
    CommitFocusedField(this);
    if (!unloaded_) {
        Main_Form_Unload();
    }
    event->accept();
}

void Main::Main_Form_Unload() {
    unloaded_ = true;
    if (EditorOpen()) {
        editor_->close();
    }
    if (comset_ != nullptr) {
        comset_->close();
    }
    SaveOnExit();
    GiveUnitBack();
}

// The window is hidden first, so that the user does not wait for a slow line: "RM0" is given to the port at once, and
// the program ends when it has left.
void Main::GiveUnitBack() {
    hide();
    services_.clock.ServeEvents();
    if (program_.link.LinkUp == 1) {
        const LinkOperation operation = link_.gate.Join();
        link_.gate.Abandon();
        link_.connection.DisconnectUnit();
    }
    link_.transport.AbandonPort();
}

void Main::SaveOnExit() {
    if (!desktop_.Question(QStringLiteral("Save default settings?"), QStringLiteral("Exit Program"),
                           Desktop::Default::Yes)) {
        return;
    }
    Preferences& preferences = program_.preferences;
    preferences.MainWindowState = WindowStateNumber(*this);
    if (preferences.MainWindowState == 0) {
        preferences.MainLeft = FormLeft(*this);
        preferences.MainTop = FormTop(*this);
    }
    SavePreferences(services_.programFolder, preferences, desktop_);
}

// While an operation runs, a press that will be refused must not move the focus either.
void Main::OnGateChanged(bool running) {
    for (QWidget* const control : std::initializer_list<QWidget*>{cRM, Command3, Command4, Command7}) {
        control->setFocusPolicy(running ? Qt::NoFocus : Qt::StrongFocus);
    }
    output_->SetTakesFocus(!running);
    if (!running) {
        linkView_->Refresh();
    }
    if (!running && std::exchange(closeWhenFree_, false)) {
        QMetaObject::invokeMethod(
            this, [this] { close(); }, Qt::QueuedConnection);
    }
}

// Escape stops a transfer. It does so whichever control has the focus: none of them has a use for the key.
void Main::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && link_.memory.Stop()) {
        hint_->ShowText(QStringLiteral("Stopping: what is on its way goes out first"));
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

// The tool tip of cRM describes the port as it is now, for a user who wonders why there is no link.
bool Main::eventFilter(QObject* watched, QEvent* event) {
    if (watched == cRM && event->type() == QEvent::ToolTip) {
        const int number = program_.preferences.ComPortNumber;
        cRM->setToolTip(QStringLiteral("Com%1: ").arg(number) +
                        services_.describePort(number, link_.transport.PortOpen()));
    }
    return QMainWindow::eventFilter(watched, event);
}

// An adapter may have been plugged in or pulled out meanwhile.
void Main::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        linkView_->Refresh();
    }
}

void Main::Main_cRM_MouseUp() {
    const auto operation = link_.gate.Begin();
    if (!operation) {
        cRM->setChecked(!cRM->isChecked());
        return;
    }
    CommitFocusedField(this);
    desktop_.BusyOn();
    if (cRM->isChecked()) {
        link_.connection.ConnectUnit();
        link_.readBack.ReadAllFromUnit();
        RefreshPanel();
    } else {
        link_.connection.DisconnectUnit();
    }
    desktop_.BusyOff();
}

void Main::ReadAndRefresh() {
    desktop_.BusyOn();
    link_.readBack.ReadAllFromUnit();
    RefreshPanel();
    desktop_.BusyOff();
}

// Nothing if a command on the link may not go ahead; a beep or a hint has said so.
std::optional<LinkOperation> Main::BeginCommand() {
    auto operation = link_.gate.Begin();
    if (operation) {
        CommitFocusedField(this);
        if (program_.link.LinkUp == 0) {
            FlashMessage(QStringLiteral("Not connected - RM ist off"));
            operation.reset();
        }
    }
    return operation;
}

void Main::Main_Command3_Click() {
    if (const auto operation = BeginCommand()) {
        ReadAndRefresh();
    }
}

void Main::Main_Command4_Click() {
    if (const auto operation = BeginCommand()) {
        link_.commands.SendAllToUnit();
        ReadAndRefresh();
    }
}

// Without a link the button does nothing.
void Main::Main_Command7_Click() {
    if (const auto operation = link_.gate.Begin()) {
        CommitFocusedField(this);
        link_.commands.SendTimeDate();
        link_.transport.CheckPort();
    }
}

void Main::ShowTransfer(const QString& text, int last) {
    status->Begin(last);
    // In place before the first point goes out, which may keep events waiting.
    centralWidget()->layout()->activate();
    hint_->ShowText(text);
    status->repaint();
}

void Main::ShowProgress(int value) { status->ShowPoint(value); }

void Main::HideTransfer() {
    status->End();
    hint_->ShowText(QString());
}

void Main::HoldInput(bool hold) { inputHold_.Set(hold); }

void Main::CheckRemote(bool checked) { cRM->setChecked(checked); }

void Main::FlashMessage(const QString& text) { hint_->FlashMessage(text); }

void Main::DrawOverviewSignal() { overview_->DrawOverviewSignal(); }

void Main::Main_SSTab1_Click(int tab) {
    if (tab <= 0) {
        overview_->RefreshOverview();
    }
}

// The rebuild may switch the instrument's output, so a load waits for the end of an operation on the link.
void Main::Main_mnulset_Click() {
    if (!link_.gate.Refuses() && settingFiles_.Load()) {
        RefreshPanel();
        if (EditorOpen()) {
            editor_->FollowSettingFile();
        }
        desktop_.BusyOff();
    }
}

// A memory must not be saved half read, nor a transfer wait for a dialog.
void Main::Main_mnusset_Click() {
    if (!link_.gate.Refuses()) {
        settingFiles_.Save(HeldFiles());
    }
}

bool Main::EditorOpen() const { return editor_ != nullptr && program_.editor.EditorOpen; }

QStringList Main::HeldFiles() const { return EditorOpen() ? editor_->HeldFiles() : QStringList(); }

// An editor that is open already only comes to the front.
void Main::Main_mnueditor_Click() {
    if (editor_ != nullptr && editor_->Waiting()) {
        desktop_.Beep();
        return;
    }
    if (link_.gate.Refuses() || !settingFiles_.SaveForEditor(HeldFiles())) {
        return;
    }
    if (!EditorOpen()) {
        editor_.reset(new Editor({program_, desktop_, boxfile, services_.ziel, *this}));
        editor_->Editor_Form_Load();
        editor_->show();
        return;
    }
    BringToFront(*editor_);
}

void Main::LoadSettingFile() {
    ::LoadSettingFile(program_.SettingFileName.Name(), program_.panel, program_.memories);
    RefreshPanel();
}

void Main::Main_mnucom_Click() {
    if (comset_ == nullptr) {
        comset_ = std::make_unique<Comset>(program_, link_, desktop_, services_.describePort, this);
    }
    if (!comset_->isVisible()) {
        comset_->comset_Form_Load();
    }
    BringToFront(*comset_);
}

void Main::Main_mnuabout_Click() { ShowAbout(*this, desktop_); }

void Main::Main_mnuguide_Click() {
    if (!ShowGuide(*this, services_.documentFolders)) {
        desktop_.MessageBox(
            QStringLiteral("The guide is not there. It belongs in the folder docs/guide beside the program."),
            QStringLiteral("Guide"));
    }
}
