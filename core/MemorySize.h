#pragma once

#include <array>
#include <span>

#include "core/ArbMemory.h"

// The two sizes of arbitrary memory, in everything in which they differ.
struct MemorySize {
    const char* table;         // of a setting file and of a construction file
    int LastAdr;               // right-hand end of the address axis, and the last point of a transfer
    int lastTableAddress;      // the last address that a memory table of a setting file holds
    const char* pointCommand;  // "arp4:", in front of the address
    const char* startCommand;  // opens the writing of the memory
    int progressStep;          // addresses from one step of the progress bar to the next
    const char* readCaption;   // the hint line during a transfer
    const char* sendCaption;
    int gridFirst;  // the editor's grid lines: the first address, the limit, the step, and the one at the centre
    int gridLimit;
    int gridStep;
    int gridCentre;
    std::span<qint16> (*samples)(ArbMemories& memories);  // the whole array, one element more than the table holds
};

inline constexpr MemorySize kMemory4k{
    "ARB4",
    4095,
    4095,
    "arp4:",
    "arc4",
    50,
    "Please wait. Read 4096 Values",
    "Please wait. Send 4095 Values",
    511,
    3583,
    512,
    2047,
    [](ArbMemories& memories) { return std::span<qint16>(memories.ArbMemory4); },
};

inline constexpr MemorySize kMemory16k{
    "ARB16",
    16384,
    16383,
    "arp16:",
    "arc16",
    100,
    "Please wait. Read 16384 Values",
    "Please wait. Send 16384 Values",
    1023,
    15360,
    1024,
    8191,
    [](ArbMemories& memories) { return std::span<qint16>(memories.ArbMemory16); },
};

inline constexpr std::array<const MemorySize*, 2> kMemorySizes{&kMemory4k, &kMemory16k};
