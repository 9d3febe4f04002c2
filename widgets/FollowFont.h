#pragma once

#include <QWidget>
#include <functional>

// Runs what fits sizes to the font of a widget: now, and whenever that font changes. Lives as long as the widget.
void FollowFont(QWidget* widget, std::function<void()> fit);

// At least as wide as this text and so many pixels, in the widget's own font.
void KeepRoomFor(QWidget* widget, const QString& text, int more = 0);
// At least so many lines high.
void KeepRoomForLines(QWidget* widget, int lines);
