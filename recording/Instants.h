#pragma once

#include "recording/Blocks.h"

namespace recording {

// Makes seconds since a common start of the stamps of a block, with their dates, also where these stand in a column of
// their own. NaN where a date is not known, or the dates may be read in several ways and not just one of them is even.
// To be called once for a block. In BlockColumn::unit a time of two parts becomes a clock if a date stands beside it.
void ResolveStamps(Table& table, TableBlock* block);

}  // namespace recording
