#pragma once

#include <QString>

#include "core/Report.h"

// What a fault that was shown came from.
enum class LinkFault : quint8 {
    None,
    PortNotOpened,  // also: it is there, but refuses the settings
    PortGone,       // pulled out
    NothingTaken,   // the line takes no output
    NoAnswer,
    OtherUnit,  // what answers does not pass as the instrument
};

// The link's side of the program's state. Flags of the link are bytes, 1 and 0.
struct LinkState {
    quint8 LinkUp = 0;                      // 1 while the link to the instrument counts as established
    quint8 SerialFault = 0;                 // 1 after a fault has been reported; cleared at the head of each operation
    quint8 UnitFound = 0;                   // result of the last ProbeUnit
    LinkFault LastFault = LinkFault::None;  // the one shown last, until the next complete reply
    Report Reported;                        // by the instrument of this link
    QString CommandText;                    // the command in work; the transport appends its CR to it
    QString ReplyText;                      // the reply in work
    QString SerialErrorText;                // what ShowSerialError will show
    QString UnitVersion;                    // trimmed reply to "VER?"
    qint32 PaceDelayMs = 5;                 // ms, wait after each command
    qint32 ReplyTimeoutMs = 3000;           // ms, for each byte of a reply
};
