#pragma once

#include "recording/Header.h"
#include "recording/Recording.h"

namespace recording {

// The block, or the blocks where its time begins again, with what the columns mean: which are channels, which the time.
// The columns refer to the values of the table.
std::vector<Block> ReadColumns(Table& table, const TableBlock& block, const Heading& heading, const Facts& facts);

}  // namespace recording
