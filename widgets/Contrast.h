#pragma once

#include <QColor>
#include <initializer_list>

// How well two colours are told apart: the contrast ratio of WCAG 2 (Web Content Accessibility Guidelines), from 1 for
// equal ones to 21 for black and white. Alpha is left out.
double ContrastOf(const QColor& one, const QColor& other);

// The least of the contrasts with each of the grounds.
double ContrastOn(std::initializer_list<QColor> grounds, const QColor& ink);

// From `from` on towards `to`, the first colour with at least this contrast with all grounds; `to` if none has.
QColor FirstWith(double contrast, std::initializer_list<QColor> grounds, const QColor& from, const QColor& to);

// So much of the one colour in the other: 0 is the ground, 1 the ink.
QColor Mixed(const QColor& ground, const QColor& ink, double share);
