// Takes the pictures of the documents: the real windows, linked to a simulated instrument, on a display with a window
// manager. scripts/pictures runs it.

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QIcon>
#include <QPlainTextEdit>
#include <QScreen>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "simulator/TraceShapes.h"
#include "simulator/TraceSource.h"
#include "support/PictureHands.h"
#include "whole/WholeBench.h"
#include "widgets/Theme.h"

namespace {

constexpr int kTransferMs = 4000;  // until a transfer is well under way
constexpr int kSettleMs = 300;     // for the desktop and what is drawn later

class Photographer : public WholeBench {
  public:
    explicit Photographer(const QDir& folderOfPictures) : pictures_(folderOfPictures.absolutePath()) {
        QDir().mkpath(pictures_.filePath(QStringLiteral("guide")));
        QDir::setCurrent(folder.path());  // the windows show names of files without a folder
    }
    void TestBody() override {}

    void PanelPictures() {
        sim::Options slow;
        slow.realTime = true;  // a transfer takes its time
        Connect(slow);
        panel.form->move(40, 40);
        Take("guide/connect.png", *panel.form);
        TakePort();
        TakeSet();
        TakeLimit();
        TakeSweep();
        TakeModulation();
        TakeTransfer();
        TakeLoaded();
        panel.form->close();
    }

    void EditorPictures() {
        program.memories = {};
        Open();
        panel.form->move(10, 10);
        desktop.answer = true;  // a new signal
        OpenEditor("pulse.set");
        TakeMemory();
        TakeFormula();
        TakeRecording();
        TakeSignal("heart.con", "guide/draw-signal.png",
                   {{700, 200},
                    {1100, -60},
                    {1450, -150},
                    {1650, 1770},
                    {1880, -700},
                    {2150, 60},
                    {2450, 480},
                    {2750, 0},
                    {3150, 450}},
                   1404);
        editor_->resize(900, 620);
        TakeSignal("sensor.con", "editor.png",
                   {{300, 1500},
                    {700, 900},
                    {1100, 1550},
                    {1450, -700},
                    {1800, -1600},
                    {2300, -200},
                    {2700, 1750},
                    {3100, 500},
                    {3500, -1000},
                    {3800, -300}},
                   2735);
        editor_->resize(760, 500);
        TakeTrace();
        editor_->close();
        panel.form->close();
    }

  private:
    FormHands<QWidget, QWidget*> Hands() { return {editor_}; }
    PictureHands Detail() { return {Hands().Get<PictureBox>("Picture2")}; }
    // At once, in place of the next tick of its timer.
    void Redraw() {
        program.editor.EditorRedrawPending = true;
        QMetaObject::invokeMethod(Hands().Get<QTimer>("Timer1"), "timeout");
        QCoreApplication::processEvents();
    }
    void OpenEditor(const char* file) {
        desktop.chosen = QString::fromLatin1(file);
        panel.Get<QAction>("mnueditor")->trigger();
        QTest::qWait(kSettleMs);
        editor_ = QApplication::activeWindow();
        editor_->resize(760, 500);
        editor_->move(60, 60);
        Hands().Get<QAbstractButton>("Marker")->click();
        QTest::keyClick(editor_, Qt::Key_0, Qt::ControlModifier);  // all of the memory
        Redraw();
    }
    void TakeMemory() {
        for (const auto& [x, y] : {std::pair(500, 0), {1000, 1500}, {1000, 1500}, {2000, 1500}, {2000, 1500}}) {
            Detail().Press(x, y);
            Redraw();
        }
        Detail().Move(2500, 0);
        Take("guide/draw-memory.png", *editor_);
        QTest::keyClick(editor_, Qt::Key_Escape);
    }
    QWidget* OpenFromEditor(const char* item) {
        Hands().Get<QAction>(item)->trigger();
        QTest::qWait(kSettleMs);
        return QApplication::activeWindow();
    }
    void TakeFormula() {
        QWidget* const window = OpenFromEditor("mnuformula");
        auto* const formula = window->findChild<QPlainTextEdit*>();
        formula->selectAll();
        QTest::keyClicks(formula, QStringLiteral("1.2*exp(-5*x)*sin(2*pi*10*x)"));
        Take("guide/draw-formula.png", *window);
        window->close();
    }
    void TakeRecording() {
        QFile file(QStringLiteral("burst.csv"));
        if (!file.open(QIODevice::WriteOnly)) {
            ADD_FAILURE();
        }
        file.write("Model,X1\nTime (s),CH1 (V),CH2 (mV)\n");
        for (int i = 0; i < 5000; ++i) {
            const double t = i / 5000.0;
            const double ringing = 3.0 * std::exp(-4.0 * t) * std::sin(2.0 * std::numbers::pi * 14.0 * t) + 0.7;
            file.write(QStringLiteral("%1,%2,%3\n")
                           .arg(i * 2e-7 - 2e-4)
                           .arg(ringing)
                           .arg(i / 400 % 2 == 0 ? -420 : 420)
                           .toLatin1());
        }
        file.close();
        desktop.chosen = file.fileName();
        QWidget* const window = OpenFromEditor("mnuopenrec");
        Take("guide/open-recording.png", *window);
        window->close();
    }
    void TakeSignal(const char* file, const char* picture, const QList<QPoint>& points, int pointer) {
        desktop.chosen = QString::fromLatin1(file);
        QAbstractButton* const signal = Hands().Get<QAbstractButton>("opEditmode_1");
        signal->setFocus();  // as behind a click
        signal->isChecked() ? Hands().Get<QAction>("mnuncon")->trigger() : signal->click();
        Hands().Get<QAbstractButton>("Marker")->isChecked() ? void() : Hands().Get<QAbstractButton>("Marker")->click();
        Redraw();
        for (const QPoint& point : points) {
            Detail().Press(point.x(), point.y());
        }
        Hands().Get<QAbstractButton>("Opintmode_1")->click();
        Redraw();
        Detail().Move(pointer, 1200);
        Take(picture, *editor_);
    }
    void TakeTrace() {
        const sim::Trace trace = *sim::TraceShape("burst");
        sim::TraceSource source({folder.filePath(QStringLiteral("qd204e")).toStdString(), {trace, trace}, {}});
        std::string error;
        EXPECT_TRUE(source.Start(&error)) << error;
        desktop.chosen = QStringLiteral("ringing.con");
        Hands().Get<QAction>("mnuncon")->trigger();
        Hands().Get<QAbstractButton>("Marker")->click();
        Hands().Get<QAbstractButton>("Opintmode_0")->click();
        Hands().Get<QAction>("mnuchafit")->trigger();
        Redraw();
        Take("guide/import.png", *editor_);
    }

    // With its frame.
    void Take(const char* name, const QWidget& window) {
        QTest::qWait(kSettleMs);
        const QRect frame = window.frameGeometry();
        const QPixmap picture = window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
        if (!picture.save(pictures_.filePath(QString::fromLatin1(name)))) {
            ADD_FAILURE() << name;
        }
    }
    // What blinks or stands no longer than a moment is gone.
    void Settle() {
        panel.form->findChild<QTimer*>(QStringLiteral("Timer3"))->stop();
        panel.Get<QLabel>("Label8")->clear();
        panel.Get("Command3")->setFocus();
    }
    void Set() {
        panel.Click("Command4");
        Settle();
    }

    void TakePort() {
        panel.Get<QAction>("mnucom")->trigger();
        QTest::qWait(kSettleMs);
        auto* const port = panel.Get("comset");
        Take("guide/connect-port.png", *port);
        port->close();
        Activate(&*panel.form);
    }
    void TakeSet() {
        panel.Click("opsignal_1");
        panel.Click("unit_1");
        panel.Enter("Text1", "250");
        panel.Enter("Text2", "12");
        panel.Enter("Text4", "2");
        panel.Click("Check1");
        panel.Click("Opoutput_0");
        Set();
        Take("guide/set.png", *panel.form);
        Take("panel.png", *panel.form);
    }
    // The hint stands, on yellow.
    void TakeLimit() {
        panel.Enter("Text4", "5");
        panel.form->findChild<QTimer*>(QStringLiteral("Timer3"))->stop();
        Take("guide/set-limit.png", *panel.form);
        panel.Enter("Text4", "0");
        panel.Click("Check1");
    }
    void TakeSweep() {
        panel.Click("opsignal_0");
        panel.ShowTab(2);
        panel.Click("opwob_2");
        panel.Click("owopsfreq_0");
        panel.Enter("Text10", "20");
        panel.Click("owopefreq_1");
        panel.Enter("Text11", "20");
        panel.Enter("Text12", "10");
        Set();
        Take("guide/sweep.png", *panel.form);
        panel.Click("opwob_0");
    }
    void TakeModulation() {
        panel.Click("unit_1");
        panel.Enter("Text1", "100");
        panel.Enter("Text2", "15");
        panel.ShowTab(1);
        panel.Click("opmod_0");
        panel.form->findChild<QTimer*>(QStringLiteral("Timer3"))->stop();
        const QString hint = panel.Hint();
        panel.Enter("Text5", "30");
        panel.Get<QLabel>("Label8")->setText(hint);
        Take("guide/modulate.png", *panel.form);
        panel.Click("opmod_3");
        Set();
        panel.ShowTab(0);
    }
    void FillMemory() {
        for (std::size_t i = 0; i < program.memories.ArbMemory4.size(); ++i) {
            const double t = static_cast<double>(i) / 4096.0;
            program.memories.ArbMemory4[i] =
                static_cast<qint16>(2047.0 * std::exp(-4.0 * t) * std::sin(2.0 * std::numbers::pi * 8.0 * t));
        }
        panel.Click("opsignal_5");
        panel.Enter("Text2", "2");
    }
    void TakeTransfer() {
        FillMemory();
        Set();
        QTimer later;
        later.setSingleShot(true);
        later.callOnTimeout([this] {
            const QRect frame = panel.form->frameGeometry();
            panel.form->screen()
                ->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height())
                .save(pictures_.filePath(QStringLiteral("guide/send.png")));
            QTest::keyClick(panel.form.get(), Qt::Key_Escape);
        });
        later.start(kTransferMs);
        panel.Get<QAction>("mnuStArb4")->trigger();
        Settle();
    }
    void TakeLoaded() {
        desktop.chosen = QStringLiteral("ringing.set");
        panel.Get<QAction>("mnusset")->trigger();
        panel.Click("opsignal_0");
        panel.Get<QAction>("mnulset")->trigger();
        Settle();
        Take("guide/save.png", *panel.form);
    }

    QDir pictures_;
    QWidget* editor_ = nullptr;
};

}  // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("Pictures FOLDER: takes the pictures of the documents into this folder\n", stderr);
        return 2;
    }
    QApplication::setCursorFlashTime(0);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/32.png")));
    FollowTheme();
    ::testing::InitGoogleTest();
    Photographer photographer{QDir(QString::fromLocal8Bit(argv[1]))};
    photographer.PanelPictures();
    photographer.EditorPictures();
    photographer.TearDown();
    return ::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}
