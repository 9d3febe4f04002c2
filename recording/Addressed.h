#pragma once

#include <string>
#include <vector>

#include "recording/Recording.h"
#include "recording/Table.h"

namespace recording {

// The first line of a file in the editor's own form, in which the values have addresses.
bool IsAddressedTitle(const std::string& line, char separator);

// Reads the pairs of a table with that title; a sentence in `fault` if something else is among them.
std::vector<AddressedSample> ReadAddressed(const Table& table, QString* fault);

}  // namespace recording
