#include "waveform/LineRules.h"

#include <algorithm>

#include "core/Numbers.h"
#include "waveform/Samples.h"

LineEnds LeftToRight(float startX, float startY, float x, float y) {
    if (startX > x) {
        return {x, y, startX, startY};
    }
    return {startX, startY, x, y};
}

qint16 LineValue(const LineEnds& line, int a) {
    float value = line.y1;
    if (NearestEven(line.x1) < NearestEven(line.x2)) {
        // In a narrow view the ends may be less than half an address apart and yet round to two addresses.
        const auto whole = static_cast<float>(NearestEven(line.x2 - line.x1));
        const float n = whole < 1.0F ? 1.0F : whole;
        value = (static_cast<float>(a) - line.x1) * ((line.y2 - line.y1) / n) + line.y1;
    }
    // Of a short steep line the nearest addresses lie beyond its ends, and their values far beyond those of its clicks.
    constexpr float kHighest = kHighestClick;
    value = std::clamp(value, -kHighest, kHighest);
    return static_cast<qint16>(NearestEven(value));
}
