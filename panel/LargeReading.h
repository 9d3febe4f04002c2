#pragma once

#include <QGridLayout>
#include <QLabel>

#include "widgets/EntryField.h"

// One of the three numbers that the panel is about: frequency, level, offset.
struct LargeReading {
    QLabel* caption;
    EntryField* field;
    QLabel* unit;
};

// Puts it into two rows of the frame "Output": the caption, below it the number in large digits of equal width, and its
// unit. The digits are at least 5.5 mm high at the desktop's own resolution, and grow with the room there is.
void AddReading(QGridLayout& output, int row, const LargeReading& reading);
