#pragma once

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>

// Controls that bear the object name by which tests and assistive tools find them.

// A frame with a title.
QGroupBox* MakeFrame(const QString& name, const QString& title, QWidget* parent);

// A label; the key in its text leads to the buddy.
QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent, QWidget* buddy = nullptr);

QMenu* AddMenu(QMenuBar* bar, const char* name, const char* caption);
QAction* AddItem(QMenu* menu, const char* name, const char* caption);
