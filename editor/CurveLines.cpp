#include "editor/CurveLines.h"

#include <algorithm>
#include <cmath>
#include <optional>

HeightScale::HeightScale(std::span<const double> values) {
    if (!values.empty()) {
        const auto [lowest, highest] = std::ranges::minmax(values);
        lowest_ = lowest;
        half_ = highest / 2.0 - lowest / 2.0;
    }
}

double HeightScale::Of(double value) const { return half_ > 0.0 ? (value / 2.0 - lowest_ / 2.0) / half_ : 0.5; }

double TimeScale::Of(std::size_t row) const {
    if (rows_ < 2) {
        return 0.5;
    }
    if (times_.empty() || !(times_.back() > times_.front())) {
        return static_cast<double>(row) / static_cast<double>(rows_ - 1);
    }
    return (times_[row] - times_.front()) / (times_.back() - times_.front());
}

std::size_t TimeScale::RowAt(double place) const {
    std::size_t row = 0;  // the first one that is not in front of the place
    for (std::size_t end = rows_; row < end;) {
        const std::size_t middle = row + (end - row) / 2;
        (Of(middle) < place ? row : end) = middle + (Of(middle) < place ? 1 : 0);
    }
    if (row == 0 || row == rows_) {
        return row == 0 ? 0 : rows_ - 1;
    }
    return Of(row) - place < place - Of(row - 1) ? row : row - 1;
}

std::vector<QLineF> CurveLines(std::span<const double> values, std::span<const double> times, int columns) {
    const HeightScale heights(values);
    const TimeScale places(values.size(), times);
    std::vector<QLineF> lines;
    std::optional<QPointF> end;  // of the column before
    for (std::size_t row = 0; row < values.size();) {
        const double column = std::floor(places.Of(row) * columns);
        const double x = places.Of(row);
        const double first = values[row];
        double low = first;
        double high = first;
        for (++row; row < values.size() && std::floor(places.Of(row) * columns) == column; ++row) {
            low = std::min(low, values[row]);
            high = std::max(high, values[row]);
        }
        if (end) {
            lines.emplace_back(*end, QPointF(x, heights.Of(first)));
        }
        if (high > low) {
            lines.emplace_back(x, heights.Of(low), x, heights.Of(high));
        }
        end = QPointF(places.Of(row - 1), heights.Of(values[row - 1]));
    }
    return lines;
}
