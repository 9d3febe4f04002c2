#pragma once

#include <QtGlobal>
#include <array>

// The instrument's two arbitrary memories. A sample is -2047 to 2047, mid-scale 0. Each array holds one element more
// than a file stores; that of the 16K memory, 16384, is the last point of a transfer.
struct ArbMemories {
    std::array<qint16, 4097> ArbMemory4{};
    std::array<qint16, 16385> ArbMemory16{};
};
