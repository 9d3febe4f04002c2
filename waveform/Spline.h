#pragma once

#include <QtGlobal>
#include <span>
#include <vector>

#include "storage/RecordStore.h"

// Points come sorted by address, equal addresses in the order in which they were added.

// One point for each address: of those that share one, the last added counts.
std::vector<Record> DistinctPoints(std::span<const Record> points);

// Fewer than two distinct points make no curve: true for them. One fills the axis with its value, none leaves it as it
// is.
bool FilledWithoutCurve(std::span<const Record> distinct, std::span<qint16> axis);

// Writes the natural cubic spline through the points, held to the range of a sample, into the axis of addresses: from
// the first point's address to the one before the last point's; the last element becomes the last point's value, all
// others stay. Two points give a straight line. Points may lie off the axis.
void ComputeSpline(std::span<const Record> points, std::span<qint16> axis);
