#pragma once

#include <QtGlobal>
#include <span>

#include "storage/RecordStore.h"

// Writes the straight lines from point to point into the axis of addresses. Points come sorted by address, equal
// addresses in the order in which they were added: the last added counts. Before the first point and past the last the
// outer line goes on, held there to the range of a sample. One point gives a constant, none changes nothing. Points may
// lie off the axis.
void GenerateLinearMemory(std::span<const Record> points, std::span<qint16> axis);
