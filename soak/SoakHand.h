#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTabBar>
#include <QTest>
#include <fstream>
#include <functional>
#include <map>
#include <random>

#include "widgets/PictureBox.h"
#include "widgets/QtDesktop.h"

inline int FromEnvironment(const char* name, int otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

// The steps of the walk, each written down before it is done: a crash or a hang shows at the end of the file.
class Trail {
  public:
    void Add(const QString& step) { file_ << ++count_ << ' ' << step.toStdString() << std::endl; }

  private:
    std::ofstream file_{"soak.log"};
    int count_ = 0;
};

// Real boxes, answered by the hand; a box stands in for the choice of a file.
class SoakDesktop : public QtDesktop {
  public:
    std::function<QString(const FileRequest&, bool open)> file;
    std::map<QString, int> shown;

    void MessageBox(const QString& text, const QString& title) override {
        ++shown[u"box " + title + u": " + text.left(20)];
        QtDesktop::MessageBox(text, title);
    }
    void Information(const QString& text, const QString& title) override {
        ++shown[u"box " + title + u": " + text.left(20)];
        QtDesktop::Information(text, title);
    }
    bool Question(const QString& text, const QString& title, Default answer) override {
        ++shown[u"question " + text.left(30)];
        return QtDesktop::Question(text, title, answer);
    }
    QString OpenFile(const FileRequest& request) override { return Choose(request, true); }
    QString SaveFile(const FileRequest& request) override { return Choose(request, false); }
    void Beep() override { ++shown[QStringLiteral("beep")]; }
    void OpenInViewer(const QUrl& /*address*/) override { ++shown[QStringLiteral("viewer")]; }

  private:
    QString Choose(const FileRequest& request, bool open) {
        return Question(request.title, QStringLiteral("File"), Default::Yes) ? file(request, open) : QString();
    }
};

// A user without a plan, who does something at a random place of what can be reached. It all goes through the window
// system's queue, so that whichever event loop runs delivers it: in a modal box, in the middle of a transfer.
class SoakHand {
  public:
    explicit SoakHand(unsigned seed) : random_(seed) {}

    std::map<QString, int> commands;  // the keys pressed, by name

    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <typename Choices>
    auto Pick(const Choices& choices) {
        return *std::next(std::begin(choices), Below(static_cast<int>(std::size(choices))));
    }

    // The window in front, or one of those that share the front; null between two windows.
    QWidget* Front() {
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            return popup;
        }
        const QWidget* blocked = nullptr;
        if (QWidget* const modal = QApplication::activeModalWidget()) {
            if (modal->windowModality() == Qt::ApplicationModal) {
                return modal;
            }
            blocked = modal->parentWidget();
        }
        QWidgetList windows = Windows();
        windows.removeIf([blocked](const QWidget* window) { return window->isMinimized() || window == blocked; });
        return windows.isEmpty() ? nullptr : Pick(windows);
    }

    static QWidgetList Windows() {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf(
            [](const QWidget* window) { return !window->isVisible() || window->windowHandle() == nullptr; });
        return windows;
    }

    // One act; returns what it was.
    QString Act(QWidget* window) {
        if (auto* const menu = qobject_cast<QMenu*>(window)) {
            return Choose(*menu);
        }
        const auto pictures = window->findChildren<PictureBox*>();
        const int kind = Below(100);
        if (kind < 25 && !pictures.isEmpty()) {
            return Draw(Pick(pictures));
        }
        if (kind < 60) {
            return Click(Controls(window));
        }
        if (auto* const bar = window->findChild<QMenuBar*>(); bar != nullptr && kind < 72) {
            Click(bar, bar->actionGeometry(Pick(bar->actions())).center());
            return QStringLiteral("menu bar");
        }
        return Type(window);
    }

    // A window may go while the hand works on it: the system then takes no more keys and clicks for it.
    void Key(const QPointer<QWidget>& window, int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (window != nullptr) {
                qt_handleKeyEvent(window->windowHandle(), type, key, modifiers, text);
            }
        }
    }

    void Click(const QPointer<QWidget>& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        Mouse(control, place, QEvent::MouseMove, Qt::NoButton);
        Mouse(control, place, QEvent::MouseButtonPress, button);
        Mouse(control, place, QEvent::MouseButtonRelease, button);
    }

  private:
    static QWidgetList Controls(const QWidget* window) {
        QWidgetList controls = window->findChildren<QWidget*>();
        controls.removeIf([](const QWidget* control) {
            return !control->isVisible() || !control->isEnabled() || control->size().isEmpty() ||
                   control->focusPolicy() == Qt::NoFocus;
        });
        return controls;
    }

    QPoint Within(QSize size) { return {Below(size.width()), Below(size.height())}; }

    QString Choose(QMenu& menu) {
        QList<QAction*> items = menu.actions();
        items.removeIf([](const QAction* item) { return !item->isEnabled() || item->isSeparator(); });
        if (items.isEmpty() || Chance(10)) {
            Key(&menu, Pick(std::array{Qt::Key_Escape, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}));
            return QStringLiteral("key in a menu");
        }
        QAction* const item = Pick(items);
        if (item->objectName() == u"mnuexit" && Chance(80)) {
            return QStringLiteral("not yet");
        }
        const QString act = u"menu item " + (item->objectName().isEmpty() ? item->text() : item->objectName());
        Click(&menu, menu.actionGeometry(item).center());
        return act;
    }

    QString Click(const QWidgetList& controls) {
        if (controls.isEmpty()) {
            return QStringLiteral("nothing to click");
        }
        QWidget* const control = Pick(controls);
        const Qt::MouseButton button =
            Chance(93) ? Qt::LeftButton : Pick(std::array{Qt::RightButton, Qt::MiddleButton});
        const bool option = qobject_cast<QAbstractButton*>(control) != nullptr;
        const QPoint place = option && Chance(80) ? QPoint(8, control->height() / 2) : Within(control->size());
        const QString act = u"click " + control->objectName() + u" in " + control->window()->objectName();
        Click(control, place, button);
        return act;
    }

    // Also beyond the edges; some drags are never ended, and some releases come without a press.
    QString Draw(PictureBox* box) {
        const QPointer<QWidget> picture(box);
        const QString act = u"drag in " + picture->objectName();
        const QSize size = picture->size();
        const auto place = [this, size] {
            return Within(size) + (Chance(10) ? QPoint(Below(400) - 200, Below(400) - 200) : QPoint());
        };
        const Qt::MouseButton button = Chance(85) ? Qt::LeftButton : Qt::RightButton;
        Mouse(picture, Within(size), QEvent::MouseMove, Qt::NoButton);
        if (Chance(95)) {
            Mouse(picture, Within(size), QEvent::MouseButtonPress, button);
        }
        for (int moves = Chance(60) ? Below(5) : 0; moves > 0; --moves) {
            Mouse(picture, place(), QEvent::MouseMove, Qt::NoButton);
        }
        if (Chance(90)) {
            Mouse(picture, place(), QEvent::MouseButtonRelease, button);
        }
        return act;
    }

    // Anywhere in the window; the system hands a turn to what is below the pointer.
    QString Turn(QWidget* window) {
        const QPointF place = Within(window->size());
        static constexpr std::array kTurns{-360, -120, -15, 15, 120};
        const QPoint turn(0, Pick(kTurns));
        QCoreApplication::postEvent(
            window->windowHandle(),
            new QWheelEvent(place, window->mapToGlobal(place), {}, turn, Qt::NoButton,
                            Chance(50) ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false));
        return QStringLiteral("wheel");
    }

    // A key of the main work.
    QString Command(QWidget* window) {
        static const QList<QKeyCombination> kCommands{Qt::Key_F5,
                                                      Qt::Key_F1,
                                                      Qt::CTRL | Qt::Key_Return,
                                                      Qt::CTRL | Qt::Key_O,
                                                      Qt::CTRL | Qt::Key_S,
                                                      Qt::CTRL | Qt::Key_E,
                                                      Qt::CTRL | Qt::Key_1,
                                                      Qt::CTRL | Qt::Key_2,
                                                      Qt::CTRL | Qt::Key_3,
                                                      Qt::CTRL | Qt::SHIFT | Qt::Key_O,
                                                      Qt::CTRL | Qt::Key_Z,
                                                      Qt::CTRL | Qt::Key_Y,
                                                      Qt::CTRL | Qt::SHIFT | Qt::Key_Z,
                                                      Qt::CTRL | Qt::Key_Plus,
                                                      Qt::CTRL | Qt::Key_Minus,
                                                      Qt::CTRL | Qt::Key_0};
        const QKeyCombination keys = Pick(kCommands);
        Key(window, keys.key(), keys.keyboardModifiers());
        const QString name = QKeySequence(keys).toString();
        ++commands[name];
        return name;
    }

    QString Type(const QPointer<QWidget>& window) {
        if (Chance(20)) {
            return Chance(30) ? Turn(window) : Command(window);
        }
        QString text;
        for (int length = Chance(95) ? 1 + Below(6) : 400; length > 0; --length) {
            text += Pick(QStringLiteral("0123456789012345678900..,,--+Ee/xÄ "));
        }
        if (Chance(40)) {
            for (const QChar c : std::as_const(text)) {
                Key(window, c.toUpper().unicode(), {}, c);
            }
            Key(window, Qt::Key_Return, {}, QStringLiteral("\r"));
            return u"type " + text.left(20);
        }
        static constexpr std::array kKeys{
            Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_Left,   Qt::Key_Up,
            Qt::Key_Right,  Qt::Key_Down, Qt::Key_Space,   Qt::Key_Home,   Qt::Key_Delete, Qt::Key_Backspace,
            Qt::Key_A,      Qt::Key_D,    Qt::Key_F4,      Qt::Key_Menu,   Qt::Key_PageUp, Qt::Key_PageDown};
        const int key = Pick(kKeys);
        Key(window, key, key < Qt::Key_Escape ? Qt::AltModifier : Qt::NoModifier);
        return QStringLiteral("key %1").arg(key, 0, 16);
    }

    void Mouse(const QPointer<QWidget>& at, QPoint place, QEvent::Type type, Qt::MouseButton button) {
        if (at == nullptr) {
            return;
        }
        held_.setFlag(button, type == QEvent::MouseButtonPress);
        stampMs_ += Chance(80) ? 600 : 5;  // so that some clicks are double clicks
        qt_handleMouseEvent(at->window()->windowHandle(), at->mapTo(at->window(), place), at->mapToGlobal(place), held_,
                            button, type, {}, stampMs_);
    }

    std::mt19937 random_;
    Qt::MouseButtons held_;
    int stampMs_ = 0;
};
