#pragma once

#include <QString>

#include "recording/Titles.h"

namespace recording {

// Why the rows of a block are no recording: those of several channels alternate, and a column tells which of them each
// belongs to, by a number or a name ("Channel", "Sensor"). Empty if there is no such column.
QString FaultOfMixture(const Table& table, const TableBlock& block, const Heading& heading);

}  // namespace recording
