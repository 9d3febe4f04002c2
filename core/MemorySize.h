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
    const char* compareCaption;
    const char* compareTitle;  // of the message box with the result of a comparison
    int gridFirst;  // the editor's grid lines: the first address, the limit, the step, and the one at the centre
    int gridLimit;
    int gridStep;
    int gridCentre;
    std::span<qint16> (*samples)(ArbMemories& memories);  // the whole array, one element more than the table holds
};

inline constexpr MemorySize kMemory4k{
    .table = "ARB4",
    .LastAdr = 4095,
    .lastTableAddress = 4095,
    .pointCommand = "arp4:",
    .startCommand = "arc4",
    .progressStep = 50,
    .readCaption = "Please wait. Read 4096 Values",
    .sendCaption = "Please wait. Send 4095 Values",
    .compareCaption = "Please wait. Compare 4096 Values",
    .compareTitle = "Compare Arb. 4k",
    .gridFirst = 511,
    .gridLimit = 3583,
    .gridStep = 512,
    .gridCentre = 2047,
    .samples = [](ArbMemories& memories) { return std::span<qint16>(memories.ArbMemory4); },
};

inline constexpr MemorySize kMemory16k{
    .table = "ARB16",
    .LastAdr = 16384,
    .lastTableAddress = 16383,
    .pointCommand = "arp16:",
    .startCommand = "arc16",
    .progressStep = 100,
    .readCaption = "Please wait. Read 16384 Values",
    .sendCaption = "Please wait. Send 16384 Values",
    .compareCaption = "Please wait. Compare 16385 Values",
    .compareTitle = "Compare Arb. 16k",
    .gridFirst = 1023,
    .gridLimit = 15360,
    .gridStep = 1024,
    .gridCentre = 8191,
    .samples = [](ArbMemories& memories) { return std::span<qint16>(memories.ArbMemory16); },
};

inline constexpr std::array<const MemorySize*, 2> kMemorySizes{&kMemory4k, &kMemory16k};
