#include "core/LevelRange.h"

const LevelRange& RangeOf(quint8 bmBereich) {
    return kLevelRanges[bmBereich >= 1 && bmBereich <= 3 ? bmBereich - 1U : 2U];
}

quint8 LevelRangeNumber(double mAmp, Truth tmVPP) {
    for (const quint8 number : {quint8{1}, quint8{2}}) {
        const LevelRange& range = RangeOf(number);
        if (mAmp >= LowestLevel(range, tmVPP) && mAmp <= HighestLevel(range, tmVPP)) {
            return number;
        }
    }
    return 3;
}
