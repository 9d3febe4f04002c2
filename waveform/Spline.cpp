#include "waveform/Spline.h"

#include <algorithm>

#include "waveform/Samples.h"

namespace {

// Of the interval between a point and the next one.
double Width(std::span<const Record> points, std::size_t i) { return points[i + 1].Adr - points[i].Adr; }
double Slope(std::span<const Record> points, std::size_t i) {
    return (points[i + 1].Value - points[i].Value) / Width(points, i);
}

// The second derivative at each point, 0 at both ends. A natural cubic spline ties those of three neighbours together;
// the tridiagonal system is solved by the Thomas algorithm, which needs no pivots as the diagonal dominates.
std::vector<double> SecondDerivatives(std::span<const Record> points) {
    const std::size_t last = points.size() - 1;
    std::vector<double> diagonal(points.size());
    std::vector<double> second(points.size());  // the right-hand side until it is solved
    for (std::size_t i = 1; i < last; ++i) {
        diagonal[i] = 2.0 * (Width(points, i) + Width(points, i - 1));
        second[i] = 6.0 * (Slope(points, i) - Slope(points, i - 1));
    }
    for (std::size_t i = 2; i < last; ++i) {
        const double beside = Width(points, i - 1);
        const double factor = beside / diagonal[i - 1];
        diagonal[i] -= factor * beside;
        second[i] -= factor * second[i - 1];
    }
    for (std::size_t i = last; i-- > 1;) {
        second[i] = (second[i] - second[i + 1] * Width(points, i)) / diagonal[i];
    }
    return second;
}

// The polynomial of one interval, t addresses past its left point.
struct Cubic {
    double A, B, C, D;
    double At(double t) const { return D + (C * t + (B * (t * t) + A * (t * t * t))); }
};

Cubic IntervalCubic(std::span<const Record> points, std::size_t i, double left, double right) {
    const double h = Width(points, i);
    return {(right - left) / (6.0 * h), left / 2.0, Slope(points, i) - (2.0 * h * left + right * h) / 6.0,
            static_cast<double>(points[i].Value)};
}

}  // namespace

std::vector<Record> DistinctPoints(std::span<const Record> points) {
    std::vector<Record> distinct;
    distinct.reserve(points.size());
    for (const Record& point : points) {
        if (!distinct.empty() && distinct.back().Adr == point.Adr) {
            distinct.back() = point;
        } else {
            distinct.push_back(point);
        }
    }
    return distinct;
}

bool FilledWithoutCurve(std::span<const Record> distinct, std::span<qint16> axis) {
    if (distinct.size() == 1) {
        std::fill(axis.begin(), axis.end(), HeldSample(distinct.front().Value));
    }
    return distinct.size() < 2;
}

void ComputeSpline(std::span<const Record> points, std::span<qint16> axis) {
    const std::vector<Record> distinct = DistinctPoints(points);
    if (FilledWithoutCurve(distinct, axis)) {
        return;
    }
    const std::vector<double> second = SecondDerivatives(distinct);
    for (std::size_t i = 0; i + 1 < distinct.size(); ++i) {
        const Cubic cubic = IntervalCubic(distinct, i, second[i], second[i + 1]);
        const int x = distinct[i].Adr;
        const int end = std::min<int>(distinct[i + 1].Adr, static_cast<int>(axis.size()));
        for (int a = std::max(x, 0); a < end; ++a) {
            axis[static_cast<std::size_t>(a)] = HeldSample(cubic.At(a - x));
        }
    }
    axis.back() = distinct.back().Value;
}
