#pragma once

#include <QStringList>
#include <optional>
#include <span>
#include <vector>

#include "core/EditorState.h"
#include "recording/Recording.h"

// A part of a recording as samples of the memory, and the setting of the instrument with which the memory plays it as
// it was recorded.

// Rows of a channel, one at least.
struct RecordedPart {
    std::span<const double> values;
    std::span<const double> times;   // beside the values, if they do not follow each other evenly; else empty
    std::optional<double> duration;  // s, from the first value to the last
};

// The rows `first` to `last` of a column without a fault, both included, counted from 0.
RecordedPart PartOf(const recording::Column& column, std::size_t first, std::size_t last);

struct RecordedWave {
    std::vector<qint16> samples;
    // What the samples mean, in the unit of the column. No step: the part is flat, and all samples are 0.
    std::optional<double> step;      // from one sample value to the next
    double atZero = 0.0;             // at the sample value 0
    std::optional<double> duration;  // s, of all samples together; positive
};

// Brings the part to so many addresses, two at least.
RecordedWave MakeWave(const RecordedPart& part, std::size_t addresses, RecordedScale scale);

// What is to be set. Level and offset hold if the full scale of the memory, 2047, is half the level above the offset.
struct Reproduction {
    std::optional<double> frequency;  // Hz
    std::optional<double> level;      // Vpp; none if the unit is no voltage, or for a flat part
    std::optional<double> offset;     // V; none if the unit is no voltage
    QStringList remarks;              // sentences on what is unknown, and on what the instrument can't do
};

// `unit` of the column; without one the values count as volts. All addresses of the memory play once in a period.
Reproduction ReproductionOf(const RecordedWave& wave, const QString& unit, const MemorySize& size);
