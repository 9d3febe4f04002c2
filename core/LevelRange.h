#pragma once

#include <QtGlobal>
#include <array>

#include "core/PanelState.h"

// The three level ranges of the output stage. The range follows from the level; it fixes how large an offset may be.
struct LevelRange {
    // Level in V: lowest and highest level of the range, both inclusive; range 3 takes what is left.
    double lowestVpp, highestVpp;
    double lowestVrms, highestVrms;
    double largestOffset;      // V, magnitude
    double offsetReplyFactor;  // the instrument reports the offset multiplied by this
    const char* number;
    const char* largestOffsetText;  // as the instrument's front panel writes it
    const char* offsetPicture;      // the offset's resolution; none where it keeps all its decimals
};

inline constexpr std::array<LevelRange, 3> kLevelRanges{{
    {0.02, 0.2, 0.0071, 0.07, 0.05, 100.0, "1", "50mV", nullptr},
    {0.21, 2.0, 0.071, 0.7, 0.5, 10.0, "2", "500mV", "0.000"},
    {2.01, 20.0, 0.71, 7.07, 5.0, 1.0, "3", "5.00V", "0.00"},
}};

// The row of range 1 to 3; any other number counts as 3.
const LevelRange& RangeOf(quint8 bmBereich);

inline double LowestLevel(const LevelRange& range, Truth tmVPP) { return tmVPP ? range.lowestVpp : range.lowestVrms; }
inline double HighestLevel(const LevelRange& range, Truth tmVPP) {
    return tmVPP ? range.highestVpp : range.highestVrms;
}

// Range 1 to 3 of a level in Vpp (tmVPP true) or Vrms. A level between two rows is range 3.
quint8 LevelRangeNumber(double mAmp, Truth tmVPP);
