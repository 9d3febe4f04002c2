#include "widgets/FormScroll.h"

#include <QApplication>

#include "widgets/Grid.h"

FormScroll::FormScroll(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);  // its content takes the focus
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*former*/, QWidget* now) {
        if (now != nullptr && isAncestorOf(now)) {
            ensureWidgetVisible(now, kMargin, kMargin);
        }
    });
}

QSize FormScroll::sizeHint() const { return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()); }
