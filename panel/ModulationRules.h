#pragma once

#include <QtGlobal>

#include "core/PanelState.h"

// AM depth in percent from an entry: 0 to 100, a half going to the even neighbour.
quint8 HoldDepth(double entry);

// Bounds of a phase in degrees, both inclusive.
inline constexpr double kLowestPhase = 0.0;
inline constexpr double kHighestPhase = 359.9;

struct HeldPhase {
    double degrees;
    bool outOfRange;
};

HeldPhase HoldPhase(double entry);

// The option of opmod that stands for a modulation. Amplitude modulation comes first if both are on.
int ModulationOptionIndex(quint8 bmAmpMod, quint8 bmFMod);
inline constexpr int kOptionAm = 0;
inline constexpr int kOptionFsk = 1;
inline constexpr int kOptionPsk = 2;
inline constexpr int kOptionOff = 3;
