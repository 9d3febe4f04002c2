// What the controls, the items of the menu and the keys of Main do.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>
#include <utility>

#include "overview/Manuals.h"
#include "panel/Main.h"
#include "panel/MainMenu.h"
#include "panel/OutputGroup.h"
#include "panel/TransferMenu.h"
#include "widgets/EntryField.h"
#include "widgets/KeyRepeat.h"

namespace {

// Whether the key that runs a command has been held since the last time: a held key must not switch the output, or set
// and read, again and again.
class HeldKey : public QObject {
  public:
    explicit HeldKey(QObject* parent) : QObject(parent) { QCoreApplication::instance()->installEventFilter(this); }
    bool Repeats() const { return repeats_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyRelease) {
            repeat_.NoteRelease(*static_cast<QKeyEvent*>(event));
        } else if (event->type() == QEvent::ShortcutOverride) {  // ahead of what the key runs
            repeats_ = repeat_.Is(*static_cast<QKeyEvent*>(event));
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    KeyRepeat repeat_;
    bool repeats_ = false;
};

}  // namespace

void Main::ConnectControls() {
    connect(cRM, &QCheckBox::clicked, this, &Main::Main_cRM_MouseUp);
    cRM->installEventFilter(this);
    connect(Command3, &QPushButton::clicked, this, &Main::Main_Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &Main::Main_Command4_Click);
    connect(Command7, &QPushButton::clicked, this, &Main::Main_Command7_Click);
    connect(SSTab1, &QTabWidget::currentChanged, this, &Main::Main_SSTab1_Click);
    link_.gate.SetWhenChanged([this](bool running) { OnGateChanged(running); });
}

void Main::ConnectMenu() {
    const auto onTrigger = [this](QAction* item, auto act) {
        connect(item, &QAction::triggered, this, [this, act] {
            // A command that will be refused leaves a half-typed entry alone.
            if (!link_.gate.Running()) {
                CommitFocusedField(this);
            }
            act();
        });
    };
    onTrigger(menu_->mnulset, [this] { Main_mnulset_Click(); });
    onTrigger(menu_->mnusset, [this] { Main_mnusset_Click(); });
    const auto onTransfer = [&](QAction* item, auto transfer, const MemorySize& size) {
        onTrigger(item, [this, transfer, &size] {
            if (const auto operation = BeginCommand()) {
                (*transfers_.*transfer)(size);
            }
        });
    };
    onTransfer(menu_->mnuRdArb4, &TransferMenu::Read, kMemory4k);
    onTransfer(menu_->mnuStArb4, &TransferMenu::Send, kMemory4k);
    onTransfer(menu_->mnuRdArb16, &TransferMenu::Read, kMemory16k);
    onTransfer(menu_->mnuStArb16, &TransferMenu::Send, kMemory16k);
    onTransfer(menu_->mnuCmpArb4, &TransferMenu::Compare, kMemory4k);
    onTransfer(menu_->mnuCmpArb16, &TransferMenu::Compare, kMemory16k);
    onTrigger(menu_->mnueditor, [this] { Main_mnueditor_Click(); });
    onTrigger(menu_->mnucom, [this] { Main_mnucom_Click(); });
    onTrigger(menu_->mnuexit, [this] { close(); });
    const QStringList& folders = services_.documentFolders;
    for (const auto& [item, name] : {std::pair(menu_->mnuhilfe, kManualGerman), {menu_->mnuhelp, kManualEnglish}}) {
        const QString manual = QString::fromLatin1(name);
        onTrigger(item, [this, &folders, manual] { OpenManual(desktop_, folders, manual); });
        connect(menu_->mnuab, &QMenu::aboutToShow, item,
                [item = item, &folders, manual] { item->setToolTip(ManualToolTip(folders, manual)); });
    }
    onTrigger(menu_->mnuabout, [this] { Main_mnuabout_Click(); });
    onTrigger(menu_->mnuguide, [this] { Main_mnuguide_Click(); });
}

// Keys for the main work that no menu shows; the tool tips of the controls do.
void Main::ConnectKeys() {
    const auto* const held = new HeldKey(this);
    const auto onKeys = [this, held](const QList<QKeySequence>& keys, const auto& act) {
        auto* const action = new QAction(this);
        action->setShortcuts(keys);
        action->setAutoRepeat(false);
        addAction(action);
        connect(action, &QAction::triggered, this, [held, act] {
            if (!held->Repeats()) {
                act();
            }
        });
    };
    onKeys({Qt::Key_F5}, [this] { Main_Command3_Click(); });
    onKeys({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}, [this] { Main_Command4_Click(); });
    onKeys({Qt::CTRL | Qt::SHIFT | Qt::Key_O}, [this] {
        if (!link_.gate.Refuses()) {
            CommitFocusedField(this);
            output_->SwitchOver();
        }
    });
    for (int tab = 0; tab < SSTab1->count(); ++tab) {
        onKeys({QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab))},
               [this, tab] { SSTab1->setCurrentIndex(tab); });
        SSTab1->setTabToolTip(tab, QStringLiteral("Ctrl+%1").arg(tab + 1));
    }
}
