#pragma once

#include <QString>

#include "core/Numbers.h"
#include "core/PanelState.h"

// The summary of the modes in plain English: lines joined by CR LF, none after the last. Numbers carry the user's
// decimal separator.
QString OverviewText(const PanelState& panel, const UserNumbers& numbers);
