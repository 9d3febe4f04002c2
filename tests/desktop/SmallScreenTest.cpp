#include <QScreen>

#include "panel/PanelBench.h"

namespace {

constexpr int kLimitMs = 30'000;  // for whatever the desktop does

struct SmallScreen : PanelBench {
    // With its frame.
    static void ExpectOnTheScreen(const QWidget& window) {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        EXPECT_TRUE(QTest::qWaitFor([&] { return screen.contains(window.frameGeometry()); }, kLimitMs))
            << window.objectName() << ' ' << window.frameGeometry().width() << 'x' << window.frameGeometry().height();
    }
    // Opens it from a menu of `owner`.
    QWidget* Opened(const char* item, QWidget* owner) {
        Activate(owner);
        owner->findChild<QAction*>(QString::fromLatin1(item))->trigger();
        EXPECT_TRUE(QTest::qWaitFor(
            [owner] { return QApplication::activeWindow() && QApplication::activeWindow() != owner; }, kLimitMs));
        return QApplication::activeWindow();
    }
};

TEST_F(SmallScreen, EveryWindowStartsWhollyOnIt) {
    QDir(folder.path()).mkpath(QStringLiteral("docs/guide"));
    QFile guide(folder.filePath(QStringLiteral("docs/guide/README.md")));
    ASSERT_TRUE(guide.open(QIODevice::WriteOnly) && guide.write("Guide") > 0);
    guide.close();
    for (const qint16 place : {qint16{0}, qint16{30'000}}) {
        Preferences& preferences = program.preferences;
        preferences.EditorWidth = preferences.EditorHeight = place;  // once smaller than it can be, once larger
        preferences.EditorLeft = preferences.EditorTop = place;
        MakeForm();
        Open();
        ExpectOnTheScreen(*form);
        desktop.answer = true;
        desktop.chosen = folder.filePath(QStringLiteral("a.set"));
        for (const char* const item : {"mnucom", "mnuabout", "mnuguide"}) {
            QWidget* const window = Opened(item, form.get());
            ASSERT_NE(window, nullptr);
            ExpectOnTheScreen(*window);
            window->close();
        }
        QWidget* const editor = Opened("mnueditor", form.get());
        ASSERT_NE(editor, nullptr);
        ExpectOnTheScreen(*editor);
        QWidget* const formula = Opened("mnuformula", editor);
        ASSERT_NE(formula, nullptr);
        ExpectOnTheScreen(*formula);
        formula->close();
        form->close();
    }
}

}  // namespace
