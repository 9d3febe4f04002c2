#pragma once

#include "recording/Blocks.h"

namespace recording {

// Turns the stamps of a block into seconds since a common start. The dates may stand in a column of their own. NaN
// where a date is not known, or where day, month and year may be read in several ways and not just one makes the times
// rise, or rise evenly. To be called once for a block. In BlockColumn::unit a time of two parts becomes a clock if a
// date stands beside it.
void ResolveStamps(Table& table, TableBlock* block);

}  // namespace recording
