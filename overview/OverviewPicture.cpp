#include "overview/OverviewPicture.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "core/Enumerations.h"
#include "core/Numbers.h"

namespace {

using Strokes = std::vector<QLineF>;

constexpr double kAmplitude = 1800.0;  // of the fixed forms
constexpr int kLastX = 62;             // where the last stroke of one unit starts
constexpr int kHalfPeriod = 8;
constexpr int kPeriod = 16;

Strokes SineStrokes() {
    const auto y = [](int x) { return NearestEven(std::sin(x / 2.0) * kAmplitude); };
    Strokes strokes;
    for (int x = 0; x <= kLastX; ++x) {
        strokes.emplace_back(x, y(x), x + 1, y(x + 1));
    }
    return strokes;
}

Strokes SquareStrokes() {
    Strokes strokes;
    int count = 4;
    double y = -kAmplitude;
    for (int x = 0; x <= kLastX; ++x) {
        ++count;
        if (count % kHalfPeriod == 0) {
            y = count == kPeriod ? -kAmplitude : kAmplitude;
            count %= kPeriod;
            strokes.emplace_back(x, kAmplitude, x, -kAmplitude);
        }
        strokes.emplace_back(x, y, x + 1, y);
    }
    return strokes;
}

Strokes TriangleStrokes() {
    Strokes strokes;
    for (int i = 0; i <= 64; i += kHalfPeriod) {
        const double y = i % kPeriod == 0 ? kAmplitude : -kAmplitude;
        strokes.emplace_back(i - 4, y, i + 4, -y);
    }
    return strokes;
}

// A ramp from `start` to its negative in each period.
Strokes RampStrokes(double start) {
    Strokes strokes;
    for (int i = kHalfPeriod; i <= 72; i += kHalfPeriod) {
        if (i % kPeriod == 0) {
            strokes.emplace_back(i - 4, kAmplitude, i - 4, -kAmplitude);
        } else {
            strokes.emplace_back(i - 12, start, i + 4, -start);
        }
    }
    return strokes;
}

// All samples that a file stores, over 64 units.
Strokes MemoryStrokes(std::span<const qint16> memory) {
    const std::size_t count = memory.size() - 1;
    const double perUnit = static_cast<double>(count) / 64.0;
    const auto point = [&](std::size_t i) { return QPointF(static_cast<double>(i) / perUnit, memory[i]); };
    Strokes strokes;
    strokes.reserve(count);
    for (std::size_t i = 1; i < count; ++i) {
        strokes.emplace_back(point(i - 1), point(i));
    }
    return strokes;
}

void PrintWords(PictureBox::Drawing& picture, const QString& words, double x) {
    picture.FontName = QStringLiteral("arial");
    picture.FontSize = 36.0;
    picture.CurrentX = x;
    picture.CurrentY = kAmplitude;
    // Smaller where large desktop fonts or a narrow window would cut the words off.
    const double room = kOverviewWidth - 1.0 - x;
    picture.FontSize *= std::min(1.0, room / picture.TextWidth(words));
    picture.Print(words);
}

}  // namespace

std::vector<QLineF> OverviewStrokes(quint8 bmSignal, const ArbMemories& memories) {
    switch (bmSignal) {
        case kSignalSine:
            return SineStrokes();
        case kSignalSquare:
            return SquareStrokes();
        case kSignalTriangular:
            return TriangleStrokes();
        case kSignalRampInc:
            return RampStrokes(-kAmplitude);
        case kSignalRampDec:
            return RampStrokes(kAmplitude);
        case kSignalArbitrary4:
            return MemoryStrokes(memories.ArbMemory4);
        case kSignalArbitrary16:
            return MemoryStrokes(memories.ArbMemory16);
        default:
            return {};
    }
}

void DrawSignalForm(PictureBox& Picture1, quint8 bmSignal, const ArbMemories& memories) {
    Picture1.SetScale(0.0, kOverviewWidth, kOverviewTop, -2.0 * kOverviewTop);
    PictureBox::Drawing picture(Picture1);
    picture.Cls();
    picture.DrawWidth = 2.0;
    picture.Lines(OverviewStrokes(bmSignal, memories));
    if (bmSignal == kSignalWhiteNoise) {
        PrintWords(picture, QStringLiteral("White noise"), 10.0);
    } else if (bmSignal == kSignalPinkNoise) {
        PrintWords(picture, QStringLiteral("Pink noise"), 13.0);
    }
}
