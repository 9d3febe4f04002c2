#include "rules/SweepRules.h"

Held HoldSweepTime(double entry, const UserNumbers& numbers) {
    if (entry < kShortestSweepS) {
        return {kShortestSweepS, u"Minimum sweep time : " + numbers.Plain(kShortestSweepS) + u" sec"};
    }
    if (entry > kLongestSweepS) {
        return {kLongestSweepS, u"Maximun sweep time : " + numbers.Plain(kLongestSweepS) + u" sec"};
    }
    return {entry, {}};
}
