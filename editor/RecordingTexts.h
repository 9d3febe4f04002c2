#pragma once

#include <QStringList>

#include "core/Numbers.h"
#include "recording/Recording.h"

// What the window `recording` says about a file.

// One for each block: its lines and rows.
QStringList TextsOfBlocks(const recording::Recording& recording);

// Rows, interval, duration and what was left out, of a column without a fault.
QString TextOfFound(const recording::Recording& recording, const recording::Column& column, const UserNumbers& numbers);

// Of a file with addresses.
QString TextOfAddressed(const recording::Recording& recording);
