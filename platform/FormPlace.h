#pragma once

#include <QWidget>

// A form's place in twips (1/1440 inch; 15 to a pixel at scale 1) and its window state: 0 normal, 1 minimised,
// 2 maximised.

// The window state of a form as a number.
qint16 WindowStateNumber(const QWidget& form);
void ApplyWindowState(QWidget& form, qint16 state);

// The outer left and top edge, held to 16 bits.
qint16 FormLeft(const QWidget& form);
qint16 FormTop(const QWidget& form);

// Shows the form in front of the others, also out of the minimised state.
void BringToFront(QWidget& form);

// The size without the frame that the desktop puts around the form, held to 16 bits.
qint16 FormWidth(const QWidget& form);
qint16 FormHeight(const QWidget& form);
void SizeForm(QWidget& form, qint16 width, qint16 height);

// Moves the form; a place that no screen shows any more is brought back onto the screen.
void MoveForm(QWidget& form, qint16 left, qint16 top);
