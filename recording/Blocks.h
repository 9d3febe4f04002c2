#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "recording/Table.h"

namespace recording {

// A column's values in the rows of a block.
struct BlockColumn {
    std::size_t column = 0;      // of the table, from 0
    std::size_t firstRow = 0;    // of the block, from 0
    std::size_t rows = 0;        // from the first one with a value to the last one
    std::size_t values = 0;      // fewer than rows if there are holes
    std::size_t firstValue = 0;  // in Table::Values
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
    std::size_t holeLine = 0;       // the first line inside that has no value; 0 if there is none
    std::size_t otherUnitLine = 0;  // the first line with another unit than the values above, or with none
    int unit = 0;                   // base of the unit in the cells, or a StampForm
    bool hasStamps = false;
};

// A run of rows with numbers: one recording.
struct TableBlock {
    std::vector<std::size_t> stretches = {};  // of the table
    std::vector<BlockColumn> columns = {};    // those with a value, from the left
    std::size_t cells = 0;                    // in most of its rows
    std::size_t rows = 0;
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
    std::size_t headerLine = 1;  // the header, lines that belong to no block, from here
    std::size_t headerEnd = 1;   // to before this line
};

struct BlockSearch {
    std::vector<TableBlock> blocks;  // in the order of their lines
    std::size_t keyLine = 0;  // the first line of a run that looks like keys with their values; 0 if there is none
};

// The runs of at least two rows. A run ends where a word stands in place of its first number, or a key in front of it;
// it goes on behind a remark. Rows of a number behind a word that changes from row to row are the keys of a header,
// unless they are many or `wordsMayLead`.
BlockSearch FindBlocks(const Table& table, bool wordsMayLead);

// Line of a row of the block.
std::size_t LineOfRow(const Table& table, const TableBlock& block, std::size_t row);

// The column holds settings beside the samples: numbers in few of the rows, or with a key in front of each.
bool IsSetting(const Table& table, const TableBlock& block, const BlockColumn& column);

}  // namespace recording
