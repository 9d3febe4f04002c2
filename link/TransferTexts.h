#pragma once

#include "link/MemoryTransfer.h"

// How a transfer is put into words.

// "37 %, 12 s left". Rounded to seconds; at least 1 s while the line is busy.
QString ProgressText(const TransferProgress& progress);

// "4096 points".
QString PointCount(const MemorySize& size);

// Of a comparison that found a difference: how many points differ, and the first one with both values.
QString DifferenceText(const MemorySize& size, const TransferResult& result);
