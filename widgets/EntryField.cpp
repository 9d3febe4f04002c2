#include "widgets/EntryField.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <memory>
#include <utility>

EntryField::EntryField(const QString& name, Filter filter, QWidget* parent)
    : QLineEdit(parent), filter_(std::move(filter)) {
    setObjectName(name);
    setAcceptDrops(false);  // what is dropped would get past the filter
}

void EntryField::Commit() {
    if (commit_) {
        commit_();
    }
}

QSize EntryField::minimumSizeHint() const {
    constexpr int kFrame = 8;  // at either side, pixels
    return QLineEdit::minimumSizeHint().expandedTo({fontMetrics().horizontalAdvance(longest_) + 2 * kFrame, 0});
}

void EntryField::setText(const QString& text) {
    QLineEdit::setText(text);
    shownAnew_ = !hasFocus();
    if (hasFocus()) {
        selectAll();
    }
}

QString EntryField::Filtered(const QString& text) const {
    QString passed;
    for (const QChar typed : text) {
        const QChar taken = filter_ ? filter_(typed) : typed;
        if (!taken.isNull()) {
            passed += taken;
        }
    }
    return passed;
}

void EntryField::Paste(bool selection) {
    const QClipboard::Mode mode = selection ? QClipboard::Selection : QClipboard::Clipboard;
    insert(Filtered(QGuiApplication::clipboard()->text(mode)));
}

// A line edit claims the keys of Undo and Redo even where it has nothing to undo, and Ctrl+E: these are the window's.
bool EntryField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if ((key->matches(QKeySequence::Undo) && !isUndoAvailable()) ||
            (key->matches(QKeySequence::Redo) && !isRedoAvailable()) ||
            (key->key() == Qt::Key_E && key->modifiers() == Qt::ControlModifier)) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Commit();
        TakeFocus(next_);
        if (hasFocus()) {
            selectAll();
        }
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        Paste(false);
        event->accept();
        return;
    }
    // The base class looks at the key for editing and at the text for typing, so the text alone is filtered.
    QKeyEvent filtered(event->type(), event->key(), event->modifiers(), Filtered(event->text()), event->isAutoRepeat());
    QLineEdit::keyPressEvent(&filtered);
    event->setAccepted(filtered.isAccepted() || (!event->text().isEmpty() && event->text().at(0).isPrint()));
}

void EntryField::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (QAction* const action : menu->actions()) {
        if (action->text().section(u'\t', 0, 0) == QLineEdit::tr("&Paste")) {
            disconnect(action, nullptr, nullptr, nullptr);
            connect(action, &QAction::triggered, this, [this] { Paste(false); });
        }
    }
    menu->exec(event->globalPos());
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection() && !isReadOnly()) {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        Paste(true);
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    // The press has placed the cursor. A drag selects by itself.
    if (std::exchange(clickedIn_, false) && !hasSelectedText()) {
        selectAll();
    }
}

// A window or a popup that merely gives the focus back must not spoil a half-typed entry. A text that was shown
// meanwhile, as by a load or at the start, is none.
void EntryField::focusInEvent(QFocusEvent* event) {
    const bool givenBack = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    QLineEdit::focusInEvent(event);
    if (!givenBack || shownAnew_) {
        clickedIn_ = event->reason() == Qt::MouseFocusReason;
        selectAll();
    }
    shownAnew_ = false;
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool fieldLeft = event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
    if (fieldLeft && (!mayCommit_ || mayCommit_())) {
        Commit();
    }
}

void TakeFocus(QWidget* control) {
    if (control != nullptr && control->isEnabled() && control->isVisibleTo(control->window())) {
        control->setFocus();
    }
}

void CommitFocusedField(const QWidget* window) {
    if (auto* const field = qobject_cast<EntryField*>(window->focusWidget())) {
        field->Commit();
    }
}
