#pragma once

#include <QLineF>
#include <vector>

#include "core/ArbMemory.h"
#include "widgets/PictureBox.h"

// The picture's user scale: x from 0 to 63, y in samples from kOverviewTop to -kOverviewTop at the bottom.
inline constexpr double kOverviewWidth = 63.0;
inline constexpr double kOverviewTop = kHighestSample;

// The strokes of a signal form in this scale, in the order of drawing; strokes may run past the left and right edges.
// A form that is a word (noise), and a value that is no form, has none.
std::vector<QLineF> OverviewStrokes(quint8 bmSignal, const ArbMemories& memories);

// Sets the scale, clears the picture and draws the shape of the signal form, or the words of a noise.
void DrawSignalForm(PictureBox& Picture1, quint8 bmSignal, const ArbMemories& memories);
