#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>

#include "core/ProgramState.h"
#include "editor/EditorHost.h"
#include "link/Link.h"
#include "panel/PortDescriber.h"
#include "panel/SettingFileMenu.h"
#include "widgets/InputHold.h"

class Comset;
class DdeLink;
class Editor;
class FrequencyGroup;
class HintLine;
class LevelGroup;
class LinkView;
class ModeGroup;
class ModulationGroup;
class OutputGroup;
class OverviewGroup;
class QCheckBox;
class QPushButton;
class QTabWidget;
class SweepGroup;
class TransferBar;
class TransferMenu;
struct MainMenu;

// What the form Main needs. Tests provide their own.
struct MainServices {
    ProgramState& program;
    Com& com;
    LinkClock& clock;
    Desktop& desktop;
    DdeLink& ziel;
    QString programFolder;
    QStringList documentFolders;
    PortDescriber describePort;
    std::function<bool()> portFound;  // is there any serial port?
};

// A form may be replaced while one of its own routines waits for events.
struct DeleteLater {
    void operator()(QObject* form) const { form->deleteLater(); }
};

// The panel in front of the instrument. It composes the rule groups, and holds what belongs to none of them: start-up
// and shutdown, the menu, the switch of the link, Read and Set.
class Main : public QMainWindow, private LinkFront, private EditorHost {
    Q_OBJECT

  public:
    explicit Main(const MainServices& services);
    ~Main() override;

    // The start of the program: preferences, then the panel from PanelState. Shows nothing yet.
    void Main_Form_Load();
    // Rebuilds the panel from PanelState.
    void RefreshPanel();
    void FlashMessage(const QString& text);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // LinkFront
    void CheckRemote(bool checked) override;
    void ShowCaption(const QString& caption) override { setWindowTitle(caption); }
    void ShowTransfer(const QString& text, int last) override;
    void ShowProgress(int value) override;
    void HideTransfer() override;
    void HoldInput(bool hold) override;

    // EditorHost
    void LoadSettingFile() override;
    void DrawOverviewSignal() override;
    bool RefuseWhileRunning() override { return link_.gate.Refuses(); }

    void Main_Form_Unload();
    void SaveOnExit();
    void GiveUnitBack();
    void Main_cRM_MouseUp();
    void Main_Command3_Click();
    void Main_Command4_Click();
    void Main_Command7_Click();
    void Main_SSTab1_Click(int tab);
    void Main_mnulset_Click();
    void Main_mnusset_Click();
    void Main_mnueditor_Click();
    void Main_mnucom_Click();
    void Main_mnuabout_Click();
    void Main_mnuguide_Click();

    void MakeControls();
    void MakeGroups();
    void ConnectControls();
    void ConnectMenu();
    void ConnectKeys();
    bool EditorOpen() const;
    QStringList HeldFiles() const;
    std::optional<LinkOperation> BeginCommand();
    void ReadAndRefresh();
    void OnGateChanged(bool running);

    // Layout (MainLayout.cpp)
    void Arrange();
    void ArrangeOutputColumn();
    QWidget* ArrangeLinkRow();
    void ArrangeTabs();
    void OrderTabs();

    MainServices services_;
    ProgramState& program_;
    Desktop& desktop_;
    Link link_;
    FileBox boxfile;
    SettingFileMenu settingFiles_;
    InputHold inputHold_;
    bool rebuilding_ = false;     // RefreshPanel runs
    bool closeWhenFree_ = false;  // the user closed the window in the middle of a link operation
    bool unloaded_ = false;       // Main_Form_Unload has run

    HintLine* hint_ = nullptr;  // Label8
    TransferBar* status = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QWidget* panel_ = nullptr;  // all but menu, hint line and progress
    QWidget* outputColumn_ = nullptr;
    QWidget* overviewTab_ = nullptr;
    QWidget* modulationTab_ = nullptr;
    QWidget* modeTab_ = nullptr;
    QCheckBox* cRM = nullptr;
    QPushButton* Command3 = nullptr;  // "Read"
    QPushButton* Command4 = nullptr;  // "Set"
    QPushButton* Command7 = nullptr;  // "Set time and date"
    std::unique_ptr<MainMenu> menu_;
    std::unique_ptr<TransferMenu> transfers_;
    std::unique_ptr<FrequencyGroup> frequency_;
    std::unique_ptr<LevelGroup> level_;
    std::unique_ptr<OutputGroup> output_;
    std::unique_ptr<ModulationGroup> modulation_;
    std::unique_ptr<SweepGroup> sweep_;
    std::unique_ptr<ModeGroup> mode_;
    std::unique_ptr<OverviewGroup> overview_;
    std::unique_ptr<LinkView> linkView_;
    std::unique_ptr<Comset> comset_;
    std::unique_ptr<Editor, DeleteLater> editor_;  // the form of the latest opening
};
