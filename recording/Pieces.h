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

// Makes blocks of the pieces of one, with the header of the whole. Walks down its stretches once.
class Divider {
  public:
    Divider(const Table& table, const TableBlock& block);

    // The pieces come in their order.
    TableBlock Next(const Piece& piece);

  private:
    const Stretch& At(std::size_t i) const;
    bool HasValueAt(std::size_t i, const BlockColumn& column) const;
    BlockColumn PartOf(const BlockColumn& column, std::size_t valuesAbove, const Piece& piece) const;

    const Table& table_;
    const TableBlock& block_;
    std::size_t index_ = 0;                 // of the stretch in which the piece begins
    std::size_t begin_ = 0;                 // row of that
    std::vector<std::size_t> valuesAbove_;  // of each column, in the stretches above that
};

}  // namespace recording
