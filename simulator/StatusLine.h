#pragma once

#include <string>

#include "simulator/Kl5276.h"

namespace sim {

// The answer to "sta?": one token for each switch of the instrument, with blanks between them.
std::string StatusLine(const InstrumentState& state);

}  // namespace sim
