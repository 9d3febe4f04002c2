#pragma once

#include <QWidget>

// A form's place in twips (1/1440 inch; 15 to a pixel at scale 1) and its window state: 0 normal, 1 minimised,
// 2 maximised.

// The window state of a form as a number.
qint16 WindowStateNumber(const QWidget& form);

// The outer left and top edge, held to 16 bits.
qint16 FormLeft(const QWidget& form);
qint16 FormTop(const QWidget& form);

// Shows the form in front of the others, also out of the minimised state.
void BringToFront(QWidget& form);

// The size without the frame that the desktop puts around the form, held to 16 bits.
qint16 FormWidth(const QWidget& form);
qint16 FormHeight(const QWidget& form);
void SizeForm(QWidget& form, qint16 width, qint16 height);

// The place nearest to a window's own at which it lies wholly on the screens; it may lie across several. Where it finds
// no room, the nearest top left corner of a screen. All in pixels; without screens its own place.
QPoint NearestPlace(const QRect& window, const QList<QRect>& screens);

// The nearest place, and the window cut to its screen where it finds no room.
QRect FittingPlace(const QRect& window, const QList<QRect>& screens);

// Moves a form that is not shown yet to the place nearest to this one at which it lies wholly on the screens, its frame
// included, and gives it its window state. In its normal state it stands there. A form larger than its screen becomes
// as large as the screen.
void PlaceForm(QWidget& form, qint16 left, qint16 top, qint16 state);
