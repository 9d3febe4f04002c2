#pragma once

#include <span>
#include <vector>

#include "recording/Roles.h"

namespace recording {

// Rows of a block, from the first to before the last.
struct Piece {
    std::size_t from = 0;
    std::size_t to = 0;
};

// The recordings in a block: one for each run of its time or segment, without numbers of a header above and rows of
// something else below. Nothing if the whole block is one.
std::vector<Piece> FindPieces(const Table& table, const TableBlock& block, const Heading& heading,
                              std::span<const Candidate> candidates);

}  // namespace recording
