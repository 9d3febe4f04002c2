#pragma once

#include <QCheckBox>
#include <QTemporaryDir>

#include "panel/Main.h"
#include "stand_ins/FakeDde.h"
#include "stand_ins/FakeDesktop.h"
#include "stand_ins/ScriptedLine.h"
#include "support/FormHands.h"
#include "support/PrintQt.h"
#include "widgets/Theme.h"

// The form Main, shown and active, on a scripted line, clock and desktop, in a folder of its own.
class PanelBench : public ::testing::Test, public FormHands<Main> {
  public:
    PanelBench() {
        FollowTheme();
        program.numbers = UserNumbers(QLocale::c());
        line.reply = [](const QString& command, const QString&) -> QByteArray {
            return command == u"sta?" ? "OT0 RFI SW0 SIN AM0 SK0 CTM VPP\r" : command.endsWith(u'?') ? "0\r" : "";
        };
        MakeForm();
    }

    // The form, and the editor that goes after it, use members of the bench.
    ~PanelBench() override {
        form.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Q_DISABLE_COPY_MOVE(PanelBench)

    // A new form; closes none that was there before.
    void MakeForm() {
        const auto describePort = [](int number, bool openHere) {
            return QStringLiteral("device %1%2").arg(number).arg(openHere ? u"!" : u"");
        };
        form = std::make_unique<Main>(
            MainServices{program, line, clock, desktop, ziel, folder.path(), {folder.path()}, describePort, [this] {
                             return portFound;
                         }});
    }

    void Open() {
        form->Main_Form_Load();
        ASSERT_TRUE(Show());
        desktop.boxes.clear();
    }

    // The link as ConnectUnit leaves it.
    void Connect() {
        line.SetCommPort(2);
        ASSERT_TRUE(line.SetPortOpen(true));
        program.link.LinkUp = 1;
        Get<QCheckBox>("cRM")->setChecked(true);
    }

    static QWidget* EditorWindow() {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf([](const QWidget* w) { return w->objectName() != u"Editor" || !w->isVisible(); });
        return windows.value(0);
    }

    ProgramState program;
    PanelState& panel = program.panel;
    ScriptedClock clock;
    ScriptedLine line{clock};
    FakeDesktop desktop;
    FakeDde ziel;
    bool portFound = true;
    QTemporaryDir folder;
};

struct OpenPanel : PanelBench {
    void SetUp() override { Open(); }
};
