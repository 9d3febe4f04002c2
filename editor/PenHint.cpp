#include "editor/PenHint.h"

#include <QHBoxLayout>

#include "editor/PenLook.h"
#include "widgets/Controls.h"

PenHint::PenHint(QWidget* parent)
    : QWidget(parent),
      hint_(MakeLabel(QStringLiteral("hint"), QString(), this)),
      viewrange_(MakeLabel(QStringLiteral("viewrange"), QString(), this)) {
    hint_->setMinimumWidth(1);
    hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    viewrange_->setAccessibleDescription(QStringLiteral("Addresses in view"));
    viewrange_->setToolTip(QStringLiteral("The addresses in view, and the last one there is"));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(hint_, 1);
    row->addWidget(viewrange_);
}

void PenHint::ShowPen(Pen pen, EditTarget target) {
    hints_ = QStringList{QString::fromLatin1(LookOf(pen).Hint(target)), QStringLiteral("Ctrl +, -, 0: zoom."),
                         QStringLiteral("Right click in a shaded strip: next page.")};
    hint_->setToolTip(hints_.join(u' '));
    Fit();
}

void PenHint::ShowView(const EditorState& editor) {
    viewrange_->setText(
        QStringLiteral("%1 to %2 of %3").arg(editor.ViewLeft).arg(editor.ViewRight).arg(editor.Size->LastAdr));
    Fit();
}

void PenHint::Tell(const QString& notice, const QString& toolTip) {
    hints_ = QStringList{notice};
    hint_->setToolTip(toolTip);
    Fit();
}

void PenHint::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}

void PenHint::Fit() {
    layout()->activate();
    const QFontMetrics metrics = hint_->fontMetrics();
    const int room = hint_->width();
    QStringList shown = hints_;
    while (shown.size() > 1 && metrics.horizontalAdvance(shown.join(u' ')) > room) {
        shown.removeLast();
    }
    hint_->setText(metrics.elidedText(shown.join(u' '), Qt::ElideRight, room));
}
