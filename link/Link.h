#pragma once

#include "link/Connection.h"
#include "link/LinkGate.h"
#include "link/MemoryTransfer.h"
#include "link/ReadBack.h"
#include "link/SerialTransport.h"
#include "link/SettingCommands.h"

// All traffic with the instrument, as one object.
struct Link {
    Link(ProgramState& program, Com& com, LinkClock& clock, Desktop& desktop, LinkFront& front)
        : gate(desktop),
          transport(program.link, gate, com, clock, desktop, front),
          connection(program, transport, gate, desktop, front),
          commands(program, transport),
          readBack(program, transport, gate),
          memory(program, transport, gate, clock, desktop, front) {}
    Q_DISABLE_COPY_MOVE(Link)

    LinkGate gate;
    SerialTransport transport;
    Connection connection;
    SettingCommands commands;
    ReadBack readBack;
    MemoryTransfer memory;
};
