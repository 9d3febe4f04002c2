#pragma once

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>

// Controls with the object name by which tests and assistive tools find them.

// The control, under that object name and, if given, under the name that a screen reader speaks.
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& accessible = {}) {
    control->setObjectName(name);
    control->setAccessibleName(accessible);
    return control;
}

// A frame with a title.
QGroupBox* MakeFrame(const QString& name, const QString& title, QWidget* parent);

// A label; the key in its text leads to the buddy.
QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent, QWidget* buddy = nullptr);

// Lets a label take the width it gets and wrap its text, with room for two lines from the start.
void LetWrap(QLabel* label);

QMenu* AddMenu(QMenuBar* bar, const char* name, const char* caption);
QAction* AddItem(QMenu* menu, const char* name, const char* caption);
