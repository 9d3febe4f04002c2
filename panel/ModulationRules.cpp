#include "panel/ModulationRules.h"

#include <algorithm>

#include "core/Enumerations.h"
#include "core/Numbers.h"

quint8 HoldDepth(double entry) { return static_cast<quint8>(NearestEven(std::clamp(entry, 0.0, 100.0))); }

HeldPhase HoldPhase(double entry) {
    if (entry < kLowestPhase) {
        return {kLowestPhase, true};
    }
    if (entry > kHighestPhase) {
        return {kHighestPhase, true};
    }
    return {entry, false};
}

int ModulationOptionIndex(quint8 bmAmpMod, quint8 bmFMod) {
    if (bmAmpMod == kAmExternal || bmAmpMod == kAmInternal) {
        return kOptionAm;
    }
    if (bmFMod == kPsk) {
        return kOptionPsk;
    }
    return bmFMod == kFsk ? kOptionFsk : kOptionOff;
}
