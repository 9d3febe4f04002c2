#include "widgets/Controls.h"

#include "widgets/FollowFont.h"

QGroupBox* MakeFrame(const QString& name, const QString& title, QWidget* parent) {
    return Named(new QGroupBox(title, parent), name);
}

QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent, QWidget* buddy) {
    auto* const label = Named(new QLabel(text, parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

void LetWrap(QLabel* label) {
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    KeepRoomForLines(label, 2);
}

QMenu* AddMenu(QMenuBar* bar, const char* name, const char* caption) {
    QMenu* const menu = bar->addMenu(QString::fromLatin1(caption));
    menu->setObjectName(QString::fromLatin1(name));
    menu->setToolTipsVisible(true);
    return menu;
}

QAction* AddItem(QMenu* menu, const char* name, const char* caption) {
    QAction* const action = menu->addAction(QString::fromLatin1(caption));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}
