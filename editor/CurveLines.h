#pragma once

#include <QLineF>
#include <cstddef>
#include <span>
#include <vector>

// Values for a picture: 0 is the lowest and 1 the highest of them; 0.5 if they are all one.
class HeightScale {
  public:
    explicit HeightScale(std::span<const double> values);
    double Of(double value) const;

  private:
    double lowest_ = 0.0;
    double half_ = 0.0;  // of the range, as the whole may be beyond all numbers
};

// Values over their times, for a picture: 0 is the first time and 1 the last. Without times they follow each other
// evenly.
class TimeScale {
  public:
    TimeScale(std::size_t rows, std::span<const double> times) : rows_(rows), times_(times) {}
    double Of(std::size_t row) const;
    // The row next to a place; places outside give the first row and the last.
    std::size_t RowAt(double place) const;

  private:
    std::size_t rows_;
    std::span<const double> times_;
};

// The curve of the values, both scales 0 to 1: straight lines, and where many values fall to one of the columns, a line
// from the lowest of them to the highest.
std::vector<QLineF> CurveLines(std::span<const double> values, std::span<const double> times, int columns);
