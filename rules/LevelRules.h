#pragma once

#include "core/LevelRange.h"
#include "core/Numbers.h"
#include "core/PanelState.h"
#include "rules/Held.h"

// The arithmetic that ties level, unit, offset and amplitude modulation together. Levels are in the unit of tmVPP
// (Vpp while true, Vrms while false), offsets in V. A value equal to a bound is valid.

// A level within the bounds of its unit.
Held HoldLevel(double level, Truth tmVPP, bool amOn, const UserNumbers& numbers);
// A level at or below the highest that amplitude modulation allows.
Held HoldAmLevel(double level, Truth tmVPP, const UserNumbers& numbers);

// A level of the other unit in the unit `toVpp`. The factor is the square root of 2.
double ConvertLevel(double level, bool toVpp);

// An offset at or below the largest of its range. It counts with its sign.
Held HoldOffset(double offset, quint8 bmBereich);

// The sum test: level and offset together may reach the range's highest level, as 2 x offset + level in Vpp, and as the
// square root of 2 x offset + level in Vrms. The offset counts with the sign it is given with.

// The level that gives way to the offset. In Vrms it is held within its range, and is never raised
// (a level in a gap of the ranges stays).
Held HoldLevelBesideOffset(double level, double offset, quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers);
// The magnitude of the offset that gives way to the level: 0 for a level that is above its range by itself, and never
// above `offset`, the magnitude that stood there.
Held HoldOffsetBesideLevel(double offset, double level, quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers);
// An offset's magnitude at the resolution of its range.
double RoundOffset(double magnitude, quint8 bmBereich);

// Tool tips of the two fields: the range of a level in this unit, and the largest offset in this level range.
QString LevelToolTip(Truth tmVPP, const UserNumbers& numbers);
QString OffsetToolTip(quint8 bmBereich, Truth tmVPP, const UserNumbers& numbers);
