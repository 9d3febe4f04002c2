#include "widgets/InputHold.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool IsEscape(const QEvent& event) { return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape; }

// Shift, Ctrl and the like: the key behind them is the press.
bool IsModifier(const QEvent& event) {
    const int key = static_cast<const QKeyEvent&>(event).key();
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

}  // namespace

void InputHold::Set(bool hold) {
    if (hold) {
        QCoreApplication::instance()->installEventFilter(this);
    } else {
        QCoreApplication::instance()->removeEventFilter(this);
    }
}

bool InputHold::eventFilter(QObject* /*watched*/, QEvent* event) {
    const QWidget* const modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal->windowModality() == Qt::ApplicationModal) {
        return false;
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            if (IsEscape(*event)) {
                return false;
            }
            if (IsModifier(*event)) {
                return true;
            }
            [[fallthrough]];
        case QEvent::Shortcut:  // no press follows one
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            desktop_.Beep();
            return true;
        case QEvent::ShortcutOverride:
            return !IsEscape(*event);
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
    }
}
