#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QRadioButton>
#include <QRegularExpression>
#include <cstdio>

#include "HastyClock.h"
#include "SoakHand.h"
#include "stand_ins/FakeDde.h"
#include "storage/ConstructionFile.h"
#include "storage/SettingFile.h"
#include "whole/WholeBench.h"

namespace {

using namespace std::chrono_literals;

constexpr int kShortWalk = 400;     // steps
constexpr int kLongWalk = 100'000;  // steps, enough to come everywhere

class WholeSoak : public WholeBench {
  public:
    void Walk(int steps) {
        left_ = steps;
        desktop_.file = [this](const FileRequest& request, bool open) { return ChooseFile(request, open); };
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Step(); });
        timer_.start(1);
        while (left_ > 0) {
            RunOnce();
        }
        timer_.stop();
        for (const auto& [keys, times] : hand_.commands) {
            Reached()[keys] = times;
        }
    }

    std::map<QString, int>& Reached() { return desktop_.shown; }

  private:
    // From start to exit, as the program's main() does it, with the preferences that the run before has left.
    void RunOnce() {
        program = ProgramState();
        fromOutside_ = false;
        LayFiles();
        PlugAgain(false);
        MakeForm(hand_.Chance(50) ? QLocale(QLocale::German) : QLocale::c(), hasty_, desktop_, ziel_);
        desktop_.SetParent(panel.form.get());
        panel.form->Main_Form_Load();
        panel.form->show();
        QApplication::exec();
        Count(QStringLiteral("runs"), true);
        CheckFiles();
        panel.form.reset();
        instrument_->Vanish();
        com.InBufferCount();
        com.SetPortOpen(false);
    }

    void Step() {
        timer_.start(Running() ? 20 : 1);  // anew, so that it also fires in a loop that this step begins
        hasty_.looks = 0;
        LookAround();
        if (left_ > 0) {
            EXPECT_EQ(Fault().toStdString(), "");
            if (left_ % 50 == 0) {
                CheckFiles();
            }
            left_ = HasFailure() ? 0 : left_;
        }
        --left_;
        QWidget* const front = hand_.Front();
        if (left_ <= 0) {
            trail_.Add(Leave(front));
        } else if (front != nullptr && hand_.Chance(88)) {
            trail_.Add(hand_.Act(front));
        } else {
            trail_.Add(hand_.Chance(50) ? TurnWindow() : TurnWorld());
        }
    }

    bool Running() { return panel.Get("Command4")->focusPolicy() == Qt::NoFocus; }

    static QWidget* Window(const char* name) {
        QWidget* found = nullptr;
        for (QWidget* const window : SoakHand::Windows()) {
            found = window->objectName() == QLatin1String(name) ? window : found;
        }
        return found;
    }

    // The shortest way out, whatever stands there.
    QString Leave(QWidget* front) {
        instrument_->Vanish();
        if (QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr) {
            hand_.Key(front, hand_.Chance(50) ? Qt::Key_Escape : Qt::Key_Return);
        } else {
            panel.form->close();
        }
        return QStringLiteral("leave");
    }

    // What the desktop lets the user do. It gives no close to a window behind a modal one.
    QString TurnWindow() {
        const QWidgetList windows = SoakHand::Windows();
        if (windows.isEmpty()) {
            return QStringLiteral("no window");
        }
        QWidget* const window = hand_.Pick(windows);
        const int kind = hand_.Below(100);
        if (kind < (window != panel.form.get() ? 20 : Running() ? 15 : 4)) {
            const auto close = [window] {
                const QWidget* const modal = QApplication::activeModalWidget();
                if (QApplication::activePopupWidget() == nullptr && (modal == nullptr || modal == window)) {
                    window->close();
                }
            };
            QMetaObject::invokeMethod(window, close, Qt::QueuedConnection);
        } else if (kind < 50) {
            window->resize(50 + hand_.Below(1400), 50 + hand_.Below(1000));
        } else {
            static constexpr std::array kStates{Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};
            window->setWindowState(hand_.Pick(kStates));
            window->activateWindow();
        }
        return QStringLiteral("window %1 %2").arg(window->objectName()).arg(kind);
    }

    // What happens around the program.
    QString TurnWorld() {
        const int kind = hand_.Below(100);
        if (kind < 35) {
            instrument_->SetFaults(SomeFaults());
            return QStringLiteral("faults");
        }
        if (kind < 50) {
            PlugAgain(true);
            return QStringLiteral("plug again");
        }
        if (kind < 75 && program.link.LinkUp == 0 && !Running() && hand_.Front() == panel.form.get()) {
            PlugAgain(false);
            hand_.Click(panel.Get("cRM"), QPoint(8, panel.Get("cRM")->height() / 2));
            return QStringLiteral("connect");
        }
        if (kind < 90) {
            static constexpr std::array kFailing{"", "", "", "mode", "execute", "request"};
            ziel_.failing = QString::fromLatin1(hand_.Pick(kFailing));
            ziel_.reply.clear();
            for (int i = hand_.Chance(80) ? 2048 : hand_.Below(5000); i > 0; --i) {
                ziel_.reply += QString::number(hand_.Below(256)) + u',';
            }
            return QStringLiteral("another trace");
        }
        if (const QStringList files = Files(); kind < 95 && !files.isEmpty()) {
            QFile::remove(folder.filePath(hand_.Pick(files)));
            return QStringLiteral("a file goes");
        }
        LayFiles();
        return QStringLiteral("files anew");
    }

    // A sound instrument at the port in use. A changed one has a rate of its own.
    void PlugAgain(bool changed) {
        if (instrument_ != nullptr) {
            instrument_->Stop();
        }
        instrument_ =
            &Plug(program.preferences.ComPortNumber,
                  {.rate = changed ? hand_.Pick(sim::kInstrumentRatesBaud) : 0, .silentOffRate = hand_.Chance(50)});
    }

    // Sound again now and then; else something is wrong.
    sim::Faults SomeFaults() {
        const auto some = static_cast<unsigned>(hand_.Below(40));
        const std::vector<sim::Faults> faults{
            {.byteDelay = 1ms},         {.endlessReply = true},     {.loneCr = true}, {.lowerCaseStatus = true},
            {.garbledNumbers = true},   {.vanishAfterLines = some}, {.stall = 200ms}, {.silentOn = {"sta?"}},
            {.muteAfterQueries = some}, {.cutReplyBytes = some / 4}};
        return hand_.Chance(70) ? hand_.Pick(faults) : sim::Faults{};
    }

    QStringList Files() const {
        QStringList files = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
        files.removeIf([](const QString& name) { return name.startsWith(u"com") || name == u"5276.def"; });
        return files;
    }

    void LayFiles() {
        for (const QString& name : Files()) {
            QFile::remove(folder.filePath(name));
        }
        EXPECT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("docs/guide")));
        Lay(QStringLiteral("docs/guide/README.md"), "# Guide\n\n[Another page](set.md)\n");
        Lay(QStringLiteral("docs/guide/set.md"), "# Set\n\n[Contents](README.md)\n");
        const QString setting = folder.filePath(QStringLiteral("good.set"));
        const QString points = folder.filePath(QStringLiteral("good.con"));
        EXPECT_TRUE(SaveSettingFile(CreateSettingFile(setting), PanelState{}, ArbMemories{}));
        EXPECT_TRUE(SaveConstructionFile(CreateConstructionFile(points)));
        QFile whole(setting);
        EXPECT_TRUE(whole.open(QFile::ReadOnly));
        Lay(QStringLiteral("good.csv"), "s,V,V\n0,1,2\n1,7,-2\n2,4,0\n3,1,1\n4,5,2\n5,1,0\n");
        broken_ = QStringList{QStringLiteral("cut.set"), QStringLiteral("cut.con"), QStringLiteral("empty.con")};
        for (const QString& name : std::as_const(broken_)) {
            Lay(name, name.startsWith(u"cut") ? whole.read(60'000) : QByteArray());
        }
    }

    void Lay(const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }

    QString ChooseFile(const FileRequest& request, bool open) {
        const QString extension = u'.' + request.extension.toLower();
        QStringList names{u"new" + extension, u"good" + extension, u"cut" + extension, u"other" + extension};
        if (open) {
            names = Files();
            names.removeIf([&](const QString& name) { return !name.endsWith(extension) && !hand_.Chance(10); });
        } else if (hand_.Chance(10)) {
            names = QStringList{u"no/folder" + extension, QString(220, u'n') + extension};
        }
        const QString name = names.isEmpty() ? u"gone" + extension : hand_.Pick(names);
        Count(request.title + u' ' + name.right(10), true);
        return folder.filePath(name);
    }

    // Every file that the program has written can be used again, and nothing else lies about.
    void CheckFiles() {
        for (const QString& name : Files().filter(QRegularExpression(QStringLiteral("(set|con)$")))) {
            const std::string path = folder.filePath(name).toStdString();
            PanelState state;
            ArbMemories memories;
            const bool whole = (LoadSettingFile(folder.filePath(name), state, memories) == LoadOutcome::Loaded ||
                                CheckConstructionFile(folder.filePath(name)) == ConstructionOutcome::Usable) &&
                               SQLite::Database(path).execAndGet("PRAGMA integrity_check").getString() == "ok";
            EXPECT_TRUE(whole || broken_.contains(name)) << path;
            broken_.removeAll(whole ? name : QString());
        }
        QFile file(folder.filePath(QStringLiteral("5276.def")));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        Preferences stored;
        const QByteArray record = file.readAll();
        if (!record.isEmpty()) {
            EXPECT_EQ(record.size(), kPreferencesSize);
            EXPECT_TRUE(DecodePreferences(record, stored));
        }
    }

    // What no moment of a run may break; empty if all holds.
    QString Fault() {
        QString fault;
        const auto hold = [&fault](const char* what, double low, double high, auto... values) {
            if (!((values >= low && values <= high) && ...)) {
                fault += QLatin1String(what);
                ((fault += u' ' + QString::number(values)), ...);
            }
        };
        const PanelState& p = program.panel;
        const double out = fromOutside_ ? 1e9 : 0.0;  // what an instrument reports counts as it comes
        const double highestLevel = (p.tmVPP ? 20.0 : 7.07) / (p.bmAmpMod != 0 ? 2 : 1);
        hold("truth values", -1, 0, p.tmOffset, p.tmOut, p.tmIntRef, p.tmVPP);
        hold("range", 1, 3, p.bmBereich);
        hold("sweep, modulation", 0, 2, p.bmWobbel, p.bmAmpMod, p.bmFMod);
        hold("signal", 0, 8, p.bmSignal);
        hold("mode", 0, 4, p.bmMode);
        hold("depth", 0, 100 + out, p.bmAmDepth);
        hold("frequencies", 0.0001 - out, 15e6 + out, p.mFreq, p.mcFreq, p.mhFreq, p.msWobbel, p.meWobbel);
        hold("sweep time", 0.01 - out, 40 + out, p.mtWobbel);
        hold("phases", -out, 359.9 + out, p.mPhasea, p.mPhaseb);
        hold("level", (p.tmVPP ? 0.02 : 0.0071) - out, highestLevel + out, p.mAmp);
        hold("offset", -5 - out, 5 + out, p.mOffset);
        const Preferences& f = program.preferences;
        hold("port", 1, 4, f.ComPortNumber);
        hold("rate", 4800, 115200, f.ComBaudRate);
        hold("window states", 0, 2, f.MainWindowState, f.EditorWindowState);
        hold("size", 0, 32767, f.EditorWidth, f.EditorHeight);
        const EditorState& e = program.editor;
        const int last = kMemory16k.LastAdr;
        hold("view", 0, lastAdr_, e.ViewLeft, e.ViewRight, e.ViewRight - e.ViewLeft - 1);
        hold("addresses", 0, last, e.CopyStart, e.PasteAt, e.ZoomDragFrom, e.ViewMargin, e.CrossX, e.LineX1);
        hold("moving addresses", -1, last, e.CopyEnd, e.ZoomDragTo, e.LineX2);
        hold("values", -2060, 2060, e.CrossY, e.LineY1, e.LineY2);
        hold("EditorOpen", editorShown_ ? 1 : 0, editorShown_ ? 1 : 0, int{e.EditorOpen});
        // A close that waited for the end of an operation comes one event behind it.
        const QString former = std::exchange(remainder_, Remainder());
        return fault + (former == remainder_ ? former : QString());
    }

    // While the program waits for its user, nothing of a command is left over.
    QString Remainder() {
        if (Running() || QApplication::activeModalWidget() != nullptr || QThread::currentThread()->loopLevel() != 1) {
            return {};
        }
        if (QGuiApplication::overrideCursor() != nullptr || panel.Get("status")->isVisible()) {
            return QStringLiteral("the hourglass or the progress bar has stayed");
        }
        const bool up = program.link.LinkUp == 1;
        const QString title = panel.form->windowTitle();
        return panel.Checked("cRM") != up || (up && !title.contains(u"Unit:"))
                   ? QStringLiteral("LinkUp %1, but \"Remote On\" %2 and the title %3")
                         .arg(up)
                         .arg(panel.Checked("cRM"))
                         .arg(title)
                   : QString();
    }

    void Count(const QString& what, bool is) { desktop_.shown[what] += is ? 1 : 0; }

    // Notes where the walk has come.
    void LookAround() {
        fromOutside_ = fromOutside_ || program.link.LinkUp != 0;
        const bool modal = QApplication::activeModalWidget() != nullptr;
        const bool moving = panel.Get("status")->isVisible();
        Count(QStringLiteral("whole transfers"),
              std::exchange(transferring_, moving) && !moving && program.link.LinkUp == 1);
        Count(QStringLiteral("steps with link"), program.link.LinkUp == 1);
        Count(QStringLiteral("steps in an operation"), Running());
        Count(QStringLiteral("steps in a transfer"), moving);
        Count(QStringLiteral("steps in a comparison"), moving && panel.Hint().contains(u"Compare"));
        Count(QStringLiteral("steps behind a stopped transfer"), panel.Hint().startsWith(u"Stopped:"));
        Count(QStringLiteral("steps in a popup"), QApplication::activePopupWidget() != nullptr);
        Count(QStringLiteral("steps in a modal box"), modal);
        Count(QStringLiteral("steps in a modal box in an operation"), modal && Running());
        for (const char* const name : {"comset", "formula", "recording", "guide", "about"}) {
            Count(u"steps with " + QString::fromLatin1(name), Window(name) != nullptr);
        }
        Count(QStringLiteral("steps with a change that is not set yet"),
              panel.Get<QLabel>("linkstate")->text().contains(u"changed"));
        Count(QStringLiteral("steps with a step to redo"), redo_);
        Count(QStringLiteral("steps with a trace copied"),
              program.editor.CopyStart == 0 && program.editor.CopyEnd == 2048);
        Count(QStringLiteral("steps with a line begun"), program.editor.LineActive);
        LookAtEditor(Window("Editor"));
    }

    void LookAtEditor(const QWidget* form) {
        editorShown_ = form != nullptr;
        lastAdr_ = kMemory16k.LastAdr;
        if (!editorShown_) {
            return;
        }
        form->findChild<QTimer*>(QStringLiteral("Timer1"))->setInterval(20);
        const auto isOn = [form](const QString& name) { return form->findChild<QRadioButton*>(name)->isChecked(); };
        const QString mode = isOn(QStringLiteral("opEditmode_0")) ? QStringLiteral("memory") : QStringLiteral("signal");
        for (int pen = 0; pen < 4; ++pen) {
            Count(QStringLiteral("steps in %1 with pen %2").arg(mode).arg(pen),
                  isOn(QStringLiteral("opPenmode_%1").arg(pen)));
        }
        Count(u"steps with a spline in " + mode, isOn(QStringLiteral("Opintmode_1")));
        redo_ = form->findChild<QAction*>(QStringLiteral("mnuredo"))->isEnabled();
        const bool large = form->findChild<QAction*>(QStringLiteral("mnu16ksig"))->isChecked();
        Count(QStringLiteral("steps in 16K"), large);
        lastAdr_ = (large ? kMemory16k : kMemory4k).LastAdr;
    }

    SoakHand hand_{static_cast<unsigned>(FromEnvironment("TRX_SOAK_SEED", 1))};
    Trail trail_;
    SoakDesktop desktop_;
    FakeDde ziel_;
    QTimer timer_;
    int left_ = 0;  // steps
    sim::SimulatedInstrument* instrument_ = nullptr;
    HastyClock hasty_;
    bool fromOutside_ = false;  // PanelState may hold what an instrument has reported
    bool transferring_ = false;
    bool editorShown_ = false;
    bool redo_ = false;
    QString remainder_;   // what the step before found
    int lastAdr_ = 0;     // of the editor's size
    QStringList broken_;  // files that were never whole
};

// TRX_SOAK_STEPS and TRX_SOAK_SEED make it another walk. A walk that hangs ends by the time limit of the test; the file
// soak.log has the steps that led there.
TEST_F(WholeSoak, NoRandomWalkBreaksTheProgram) {
    const int steps = FromEnvironment("TRX_SOAK_STEPS", kShortWalk);
    Walk(steps);
    if (steps > kShortWalk) {
        for (const auto& [what, times] : Reached()) {
            std::printf("%7d %s\n", times, what.toUtf8().constData());
            EXPECT_TRUE(times > 0 || steps < kLongWalk || HasFailure()) << "never reached: " << what.toStdString();
        }
    }
}

}  // namespace
