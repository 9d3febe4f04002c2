#pragma once

#include <QString>
#include <span>

#include "core/ArbMemory.h"

inline constexpr int kTraceSamples = 2048;  // of one channel
inline constexpr int kTraceHeight = 1500;   // a trace spans this, up and down

// Reads a recorded trace, decimal numbers separated by commas, into the samples 1 to 2048 of the copy buffer, and
// scales it to -1500..1500 unless its highest number is 0 or less. A short text repeats its last number; a last number
// of 0 gives way to the one before it. False if a number does not fit 16 bits, or if the numbers are too far apart to
// be scaled, or all one from 1 to 255; part of the trace may stand in the buffer then.
bool ReadTrace(const QString& text, std::span<qint16, kAddresses16k> CopyBuffer);
