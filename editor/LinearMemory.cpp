#include "editor/LinearMemory.h"

#include <algorithm>

#include "editor/Samples.h"
#include "editor/Spline.h"

namespace {

// Exact at both ends, and on a level line.
qint16 SampleOnLine(const Record& left, const Record& right, int a) {
    const double slope = static_cast<double>(right.Value - left.Value) / (right.Adr - left.Adr);
    const double value = slope * (a - left.Adr) + left.Value;
    const bool between = a >= left.Adr && a <= right.Adr;
    return between ? static_cast<qint16>(NearestEven(value)) : HeldSample(value);
}

}  // namespace

void GenerateLinearMemory(std::span<const Record> points, int LastAdr, std::span<qint16> target) {
    const std::vector<Record> distinct = DistinctPoints(points);
    const int size = std::min(static_cast<int>(target.size()), LastAdr + 1);
    if (distinct.empty() || size < 1) {
        return;
    }
    if (distinct.size() == 1) {
        std::fill_n(target.begin(), size, HeldSample(distinct.front().Value));
        return;
    }
    std::size_t right = 1;
    for (int a = 0; a < size; ++a) {
        while (a > distinct[right].Adr && right + 1 < distinct.size()) {
            ++right;
        }
        target[static_cast<std::size_t>(a)] = SampleOnLine(distinct[right - 1], distinct[right], a);
    }
}
