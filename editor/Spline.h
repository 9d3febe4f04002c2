#pragma once

#include <QtGlobal>
#include <span>
#include <vector>

#include "storage/RecordStore.h"

// Points come sorted by address, equal addresses in the order in which they were added.

// One point for each address: of those that share one, the last added counts.
std::vector<Record> DistinctPoints(std::span<const Record> points);

// Writes the natural cubic spline through the points, held to the range of a sample, from the first point's address to
// the one before the last point's; the element at LastAdr becomes the last point's value, all others stay. Two points
// give a straight line, one a constant from 0 to LastAdr, none changes nothing. Points may lie off the axis: addresses
// outside the signal are passed over.
void ComputeSpline(std::span<const Record> points, int LastAdr, std::span<qint16> signal);
