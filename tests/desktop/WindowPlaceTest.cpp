#include <QProcess>
#include <QScreen>
#include <array>

#include "panel/PanelBench.h"
#include "panel/PreferencesFile.h"
#include "widgets/FormPlace.h"

namespace {

constexpr qint16 kLeft = 2250;  // twips, on the screen with room all around
constexpr qint16 kTop = 1800;
constexpr qint16 kWidth = 9000;
constexpr qint16 kHeight = 6750;

// Whether the desktop and the window agree on its state.
bool HasState(const QWidget& window, int state) {
    QProcess xprop;
    xprop.start(QStringLiteral("xprop"), {QStringLiteral("-id"), QString::number(window.winId()),
                                          QStringLiteral("WM_STATE"), QStringLiteral("_NET_WM_STATE")});
    xprop.waitForFinished();
    const QByteArray told = xprop.readAll();
    const bool iconic = told.contains("window state: Iconic");
    const bool normal = told.contains("window state: Normal");
    const bool maximised = told.contains("_NET_WM_STATE_MAXIMIZED_VERT");
    const bool wide = window.width() == window.screen()->availableGeometry().width();
    const int seen = iconic ? 1 : !normal || wide != maximised ? -1 : maximised ? 2 : 0;
    return seen == state && WindowStateNumber(window) == state;
}

bool ComesToState(const QWidget& window, int state) {
    return QTest::qWaitFor([&] { return HasState(window, state); }, kLimitMs);
}

// As a task bar does it for a minimised window.
void MakeNormal(QWidget& window) {
    if (window.isMinimized()) {
        QProcess::execute(QStringLiteral("xdotool"),
                          {QStringLiteral("windowactivate"), QString::number(window.winId())});
    } else {
        window.showNormal();
    }
    EXPECT_TRUE(ComesToState(window, 0));
}

// left, top, width, height in twips
using Place = std::array<int, 4>;

Place PlaceOf(const QWidget& window) {
    return {FormLeft(window), FormTop(window), FormWidth(window), FormHeight(window)};
}

void ExpectComesTo(const QWidget& window, const Place& place) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return PlaceOf(window) == place; }, kLimitMs))
        << ::testing::PrintToString(PlaceOf(window));
}

// The panel and its editor, opened and closed again and again.
struct WindowPlaces : PanelBench {
    QWidget* editor = nullptr;
    Place main{};  // of the panel, in its normal state

    Preferences Stored() {
        Preferences stored;
        LoadPreferences(folder.path(), stored, desktop);
        return stored;
    }
    void Store(const Preferences& preferences) { SavePreferences(folder.path(), preferences, desktop); }
    static Preferences Placed(qint16 state, qint16 left = kLeft, qint16 top = kTop) {
        return {.MainWindowState = state,
                .MainLeft = left,
                .MainTop = top,
                .EditorWindowState = state,
                .EditorLeft = left,
                .EditorTop = top,
                .EditorWidth = kWidth,
                .EditorHeight = kHeight};
    }
    void Start(int state) {
        MakeForm();
        form->Main_Form_Load();
        main = PlaceOf(*form);
        form->show();
        ASSERT_TRUE(ComesToState(*form, state));
        desktop.chosen = folder.filePath(QStringLiteral("a.set"));
        desktop.answer = true;
        Get<QAction>("mnueditor")->trigger();
        editor = EditorWindow();
        ASSERT_TRUE(ComesToState(*editor, state));
    }
    void CloseAndExpect(qint16 state) {
        EXPECT_TRUE(form->close());
        EXPECT_EQ(EncodePreferences(Stored()), EncodePreferences(Placed(state)));
    }
};

constexpr std::array<qint16, 5> kStates{0, 1, 2, 2, 1};

TEST_F(WindowPlaces, AreThoseOfTheLastExitInEveryState) {
    Store(Placed(0));
    for (const qint16 state : kStates) {
        SCOPED_TRACE(state);
        Preferences last = Stored();
        last.MainWindowState = last.EditorWindowState = state;
        Store(last);
        Start(state);
        CloseAndExpect(state);
        Start(state);
        MakeNormal(*form);
        MakeNormal(*editor);
        ExpectComesTo(*form, main);
        ExpectComesTo(*editor, {kLeft, kTop, kWidth, kHeight});
        CloseAndExpect(0);
    }
}

TEST_F(WindowPlaces, OffTheScreenComeInWithTheirFrames) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().bottomRight();
    const auto isIn = [corner](const QWidget& window) { return window.frameGeometry().bottomRight() == corner; };
    for (const qint16 state : kStates) {
        SCOPED_TRACE(state);
        Store(Placed(state, 30'000, 30'000));
        Start(state);
        MakeNormal(*form);
        MakeNormal(*editor);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isIn(*form); }, kLimitMs));
        EXPECT_TRUE(QTest::qWaitFor([&] { return isIn(*editor); }, kLimitMs));
        form->close();
    }
}

}  // namespace
