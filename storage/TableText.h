#pragma once

#include <QByteArray>
#include <QString>
#include <span>

#include "storage/RecordStore.h"

// The title line of a table as text.
inline constexpr char kTableTitle[] = "address,value";

// The records as text that every program reads, the same in every country: a title line and one line for each record,
// in their order; UTF-8, each line ended by "\n".
QByteArray TableText(std::span<const Record> records);

// Writes the text into a file, whole or not at all: a failure, a kill or a full disk leaves what stood there.
bool SaveTableText(const QString& fileName, std::span<const Record> records);
