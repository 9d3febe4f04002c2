#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "recording/Blocks.h"

namespace recording {

// What a title says of its column.
enum class Meaning {
    Unknown,
    Time,
    MaybeTime,   // "t", "x" or "s", which a channel may bear as well
    MaybeIndex,  // "i" or "data"
    Index,       // or a count
    Segment,
    WhichChannel,  // the number of one, or the channel itself: "Channel"
    Axis,          // of another kind, as a frequency
    Channel,
    Extra  // a second line of a channel, as of a peak detection
};

struct Title {
    QString name;
    QString unit;

    Meaning Means() const;
    // The channel, in small letters, of which this is one of several lines: "ch1" for "CH1 Peak Detect" and "CH1_MAX".
    // Nothing for any other title.
    std::optional<QString> LineOfChannel() const;
    // It says a time and nothing else, so that its unit is the second: "Time", "t", but not "Time (ticks)".
    bool IsPlainTime() const;
};

// "CH1 (mV)", "time in s", "Voltage [V]", "t/s", "ms": the name and the unit behind it.
Title ReadTitle(const QString& cell);

// What stands above a block.
struct Heading {
    std::vector<Title> titles;   // by column of the table; those beyond have none
    std::size_t titleCells = 0;  // cells of the line that they stand in; 0 if there is none
    // The line that they stand in, if its first word is a title although it may be a key ("Source"); else 0.
    std::size_t lineWithoutKey = 0;
};

Heading FindHeading(const Table& table, const TableBlock& block);

// The cells of a line of words, for a block with so many cells. Where blanks separate, the words of a title may have
// blanks between them.
QStringList WordCells(const std::string& line, char separator, std::size_t cells);

// The cells of a line with a key, which may have another separator than the samples.
QStringList KeyCells(const std::string& line, char separator);

}  // namespace recording
