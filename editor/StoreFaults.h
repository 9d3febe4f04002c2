#pragma once

#include "platform/Desktop.h"
#include "waveform/EditorTables.h"

// How a failure of the record store reaches the user.
enum class Telling {
    Box,     // one message box for each
    Once,    // one message box, and none any more until something succeeds: for what a timer repeats
    Silent,  // none
};

// What a failure is to the user; the name of the file is to follow.
QString Complaint(StoreOutcome failure);

// Tells the user that a new file could not be written.
void TellNotWritten(Desktop& desktop, const QString& fileName, const QString& title);

// Tells the user of operations that failed. Every result goes through here, as a success ends the silence.
class StoreFaults {
  public:
    explicit StoreFaults(Desktop& desktop) : desktop_(desktop) {}

    // True if nothing failed.
    bool Tell(const TableResult& result, Telling telling);

  private:
    Desktop& desktop_;
    QString toldOf_;  // the file whose failure was told, if nothing has succeeded since
};
