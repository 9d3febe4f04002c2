#pragma once

#include "core/PanelState.h"
#include "rules/Held.h"

// AM depth in percent: a whole number from 0 to 100, a half going to the even neighbour.
Held HoldDepth(double entry);

// Bounds of a phase in degrees, both inclusive.
inline constexpr double kLowestPhase = 0.0;
inline constexpr double kHighestPhase = 359.9;

// A phase in degrees, held within the bounds.
Held HoldPhase(double entry);

// The option of opmod that stands for a modulation. Amplitude modulation comes first if both are on.
int ModulationOptionIndex(quint8 bmAmpMod, quint8 bmFMod);
inline constexpr int kOptionAm = 0;
inline constexpr int kOptionFsk = 1;
inline constexpr int kOptionPsk = 2;
inline constexpr int kOptionOff = 3;
