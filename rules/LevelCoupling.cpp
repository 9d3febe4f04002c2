#include "rules/LevelCoupling.h"

#include <cmath>

#include "rules/LevelRules.h"

namespace {

void Store(const Held& held, double& field, const SayHint& say) {
    field = held.value;
    if (!held.hint.isEmpty()) {
        say(held.hint);
    }
}

// Leaves the magnitude in mOffset.
void HoldOffsetMagnitude(PanelState& panel, const UserNumbers& numbers, const SayHint& say) {
    Store(HoldOffset(std::fabs(panel.mOffset), panel.bmBereich), panel.mOffset, say);
    Store(HoldOffsetBesideLevel(panel.mOffset, panel.mAmp, panel.bmBereich, panel.tmVPP, numbers), panel.mOffset, say);
    panel.mOffset = RoundOffset(panel.mOffset, panel.bmBereich);
}

}  // namespace

void CoupleLevel(PanelState& panel, const UserNumbers& numbers, const SayHint& say) {
    panel.bmBereich = LevelRangeNumber(panel.mAmp, panel.tmVPP);
    Store(HoldOffset(panel.mOffset, panel.bmBereich), panel.mOffset, say);
    Store(HoldLevelBesideOffset(panel.mAmp, panel.mOffset, panel.bmBereich, panel.tmVPP, numbers), panel.mAmp, say);
}

void CoupleOffset(PanelState& panel, const UserNumbers& numbers, const SayHint& say) {
    const double sign = panel.mOffset < 0.0 ? -1.0 : 1.0;
    HoldOffsetMagnitude(panel, numbers, say);
    panel.mOffset *= sign;
    if (panel.tmOffset && AmOn(panel)) {
        panel.tmOffset = kFalse;
        say(QStringLiteral("An offset voltage cannot be superimposed to an AM signal"));
    }
}
