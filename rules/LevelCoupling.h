#pragma once

#include <functional>

#include "core/Numbers.h"
#include "core/PanelState.h"

// What follows in PanelState from a level, a unit or an offset that was changed (LevelRules.h). Each rule that acts
// gives its hint to `say`.
using SayHint = std::function<void(const QString& hint)>;

// Amplitude modulation is on.
inline bool AmOn(const PanelState& panel) { return panel.bmAmpMod != 0; }

// Behind a change of the level or its unit: the range, then the offset within it, then the level beside the offset.
void CoupleLevel(PanelState& panel, const UserNumbers& numbers, const SayHint& say);

// Behind each of these changes, and behind one of the offset: its magnitude within the range, beside the level, and at
// its resolution; then no offset beside amplitude modulation.
void CoupleOffset(PanelState& panel, const UserNumbers& numbers, const SayHint& say);
