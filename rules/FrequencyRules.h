#pragma once

#include "core/FrequencyRange.h"
#include "core/Numbers.h"
#include "rules/Held.h"

// A frequency in Hz, held within the bounds, from an entry in a unit (index into kFrequencyUnits; any other means Hz).
Held HoldFrequency(double entry, int unit, const UserNumbers& numbers);

// The instrument's maximum for a signal form 0 to 8, as a tool tip of the frequency fields.
QString FrequencyToolTip(quint8 bmSignal);
