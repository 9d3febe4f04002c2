#pragma once

#include <QtGlobal>

// A line drawn with the pen: LineX1 to LineY2, in addresses and samples as the pointer gave them.
struct LineEnds {
    float x1, y1, x2, y2;
};

// The line between two clicks, from the left one to the right one. Above each other, the first click is the left one.
LineEnds LeftToRight(float startX, float startY, float x, float y);

// The sample of a line that runs left to right, at one of the addresses from its left end to its right end, both to the
// nearest address, held to -kHighestClick..kHighestClick. A line whose ends share an address has the value of its left
// end there.
qint16 LineValue(const LineEnds& line, int a);
