// Takes the pictures of the documents: the real windows, linked to a simulated instrument, on a display with a window
// manager. scripts/pictures runs it.

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QPlainTextEdit>
#include <QScreen>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "whole/WholeBench.h"
#include "widgets/Theme.h"

namespace {

constexpr int kSettleMs = 300;  // for the desktop and what is drawn later

class Photographer : public WholeBench {
  public:
    explicit Photographer(const QDir& folderOfPictures) : pictures_(folderOfPictures) {
        QDir().mkpath(pictures_.filePath(QStringLiteral("guide")));
    }
    void TestBody() override {}

    void PanelPictures() {
        Connect();
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

  private:
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
        later.start(8000);
        panel.Get<QAction>("mnuStArb4")->trigger();
        Settle();
    }
    void TakeLoaded() {
        desktop.chosen = folder.filePath(QStringLiteral("ringing.set"));
        panel.Get<QAction>("mnusset")->trigger();
        panel.Click("opsignal_0");
        panel.Get<QAction>("mnulset")->trigger();
        Settle();
        Take("guide/save.png", *panel.form);
    }

    QDir pictures_;
};

}  // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("Pictures FOLDER: takes the pictures of the documents into this folder\n", stderr);
        return 2;
    }
    QApplication::setCursorFlashTime(0);
    FollowTheme();
    ::testing::InitGoogleTest();
    Photographer photographer{QDir(QString::fromLocal8Bit(argv[1]))};
    photographer.PanelPictures();
    photographer.TearDown();
    return 0;
}
