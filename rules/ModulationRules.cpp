#include "rules/ModulationRules.h"

#include <algorithm>

#include "core/Enumerations.h"
#include "core/Numbers.h"

Held HoldDepth(double entry) { return {NearestEven(std::clamp(entry, 0.0, 100.0)), {}}; }

Held HoldPhase(double entry) {
    const double held = std::clamp(entry, kLowestPhase, kHighestPhase);
    return {held, held == entry ? QString() : QStringLiteral("Phaseange: 0° to 359.9°")};
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
