#include <QScreen>

#include "panel/AllWindows.h"

namespace {

using SmallScreen = Windows;

TEST_F(SmallScreen, EveryWindowStartsWhollyOnIt) {
    withPages = true;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const qint16 place : {qint16{0}, qint16{30'000}}) {
        Preferences& preferences = program.preferences;
        preferences.EditorWidth = preferences.EditorHeight = place;  // once smaller than it can be, once larger
        preferences.EditorLeft = preferences.EditorTop = place;
        MakeForm();
        Check([&](const QWidget* window) {  // with its frame
            EXPECT_TRUE(QTest::qWaitFor([&] { return screen.contains(window->frameGeometry()); }, kLimitMs))
                << window->objectName() << ' ' << window->frameGeometry().width() << 'x'
                << window->frameGeometry().height();
        });
    }
}

}  // namespace
