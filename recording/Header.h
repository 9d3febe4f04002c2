#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "recording/Titles.h"

namespace recording {

// What keys in the header of a block, or in columns beside its samples, tell.
struct Facts {
    struct Entry {
        QString text;
        std::size_t column = 0;  // of the table, from 0
        // It stands in a row with samples and belongs to the next channel to the right. Else it stands above: the first
        // such text belongs to the first channel, the second to the second.
        bool isBeside = false;
    };

    std::optional<double> interval;  // s
    QString timeUnit;
    std::vector<Entry> names;
    std::vector<Entry> units;  // of the channels; a single one is that of all of them

    // Takes over from others what is not known here.
    void TakeFrom(const Facts& other);
};

// Reads "Sample Rate: 1 MSa/s", "Increment;4e-9", "Source,CH1,CH2" and their like, and numbers below such a title.
Facts FindFacts(const Table& table, const TableBlock& block, const Heading& heading);

}  // namespace recording
