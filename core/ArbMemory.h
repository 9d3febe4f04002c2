#pragma once

#include <QtGlobal>
#include <array>

// Addresses of the larger memory, 0 to 16384.
inline constexpr std::size_t kAddresses16k = 16385;

// A sample is -kHighestSample to kHighestSample, mid-scale 0.
inline constexpr int kHighestSample = 2047;

// The instrument's two arbitrary memories. Each array holds one element more than a file stores; that of the 16K
// memory, 16384, is the last point of a transfer.
struct ArbMemories {
    std::array<qint16, 4097> ArbMemory4{};
    std::array<qint16, kAddresses16k> ArbMemory16{};

    bool operator==(const ArbMemories&) const = default;
};
