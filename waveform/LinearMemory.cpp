#include "waveform/LinearMemory.h"

#include "waveform/Samples.h"
#include "waveform/Spline.h"

namespace {

// Exact at both ends, and on a level line.
qint16 SampleOnLine(const Record& left, const Record& right, int a) {
    const double slope = static_cast<double>(right.Value - left.Value) / (right.Adr - left.Adr);
    const double value = slope * (a - left.Adr) + left.Value;
    const bool between = a >= left.Adr && a <= right.Adr;
    return between ? static_cast<qint16>(NearestEven(value)) : HeldSample(value);
}

}  // namespace

void GenerateLinearMemory(std::span<const Record> points, std::span<qint16> axis) {
    const std::vector<Record> distinct = DistinctPoints(points);
    if (FilledWithoutCurve(distinct, axis)) {
        return;
    }
    std::size_t right = 1;
    for (int a = 0; a < static_cast<int>(axis.size()); ++a) {
        while (a > distinct[right].Adr && right + 1 < distinct.size()) {
            ++right;
        }
        axis[static_cast<std::size_t>(a)] = SampleOnLine(distinct[right - 1], distinct[right], a);
    }
}
