#pragma once

#include <QPalette>

#include "widgets/Contrast.h"

// The colour of texts, so much of it on the ground: 1 is the text, 0 the ground.
inline QColor InkOn(const QPalette& palette, double share) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), share);
}
