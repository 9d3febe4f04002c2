#pragma once

#include "core/Numbers.h"
#include "rules/Held.h"

// Bounds of every frequency entry in Hz, both inclusive. They don't depend on the signal form.
inline constexpr double kLowestHz = 0.0001;
inline constexpr double kHighestHz = 15.0e6;

// A frequency in Hz, held within the bounds, from an entry in a unit (index into kFrequencyUnits; any other means Hz).
Held HoldFrequency(double entry, int unit, const UserNumbers& numbers);

// The instrument's maximum for a signal form 0 to 8, as a tool tip of the frequency fields.
QString FrequencyToolTip(quint8 bmSignal);
