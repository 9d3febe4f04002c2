#include "editor/FormulaField.h"

#include <QKeyEvent>
#include <algorithm>

FormulaField::FormulaField(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FormulaField::Put(const QString& formula) {
    QTextCursor everything(document());
    everything.select(QTextCursor::Document);
    everything.insertText(formula);
}

void FormulaField::Mark(qsizetype at, qsizetype length) {
    const auto size = static_cast<int>(toPlainText().size());
    if (at < 0 || size == 0) {
        setExtraSelections({});
        return;
    }
    const int first = std::min(static_cast<int>(at), size - 1);
    QTextEdit::ExtraSelection place;
    place.cursor = QTextCursor(document());
    place.cursor.setPosition(first);
    place.cursor.setPosition(std::clamp(first + static_cast<int>(length), first + 1, size), QTextCursor::KeepAnchor);
    place.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    place.format.setUnderlineColor(Qt::red);
    place.format.setBackground(QColor(255, 0, 0, 90));  // shows on a light and on a dark ground
    setExtraSelections({place});
}

QSize FormulaField::HintOf(int lines) const {
    const QFontMetrics metrics = fontMetrics();
    const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    constexpr int kColumns = 40;
    return {kColumns * metrics.averageCharWidth() + frame, lines * metrics.lineSpacing() + frame};
}

void FormulaField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}
