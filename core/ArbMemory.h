#pragma once

#include <QtGlobal>
#include <array>

// Addresses of the larger memory, 0 to 16384.
inline constexpr std::size_t kAddresses16k = 16385;

// The instrument's two arbitrary memories. A sample is -2047 to 2047, mid-scale 0. Each array holds one element more
// than a file stores; that of the 16K memory, 16384, is the last point of a transfer.
struct ArbMemories {
    std::array<qint16, 4097> ArbMemory4{};
    std::array<qint16, kAddresses16k> ArbMemory16{};

    bool operator==(const ArbMemories&) const = default;
};
