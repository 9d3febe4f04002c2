#pragma once

#include "core/ProgramState.h"
#include "link/LinkGate.h"
#include "link/SerialTransport.h"

// How the link comes into being and ends. The outcome of each routine stands in LinkUp and SerialFault; whoever calls
// holds the link's gate.
//
// Offline: port closed. Linked: LinkUp 1. Faulted: LinkUp 0 with the port still open, until the next attempt.
class Connection {
  public:
    Connection(ProgramState& program, SerialTransport& transport, const LinkGate& gate, Desktop& desktop,
               LinkFront& front)
        : link_(program.link),
          preferences_(program.preferences),
          transport_(transport),
          gate_(gate),
          desktop_(desktop),
          front_(front) {}

    // Opens the port with ComPortNumber and ComBaudRate.
    void OpenComPort();
    // The whole connection, with the search over the rates. On success cRM is checked.
    void ConnectUnit();
    // Gives the instrument back with "RM0" and closes the port.
    void DisconnectUnit();
    // ConnectUnit on each port in turn, until it is found or the search is abandoned at the gate.
    void AutoSearchUnit();

  private:
    // Asks "ID?"; leaves UnitFound 1 or 0. While the link is down on an open port it reports a unit without asking.
    void ProbeUnit();
    bool SearchRates();
    bool Ask(const char* query);

    LinkState& link_;
    Preferences& preferences_;
    SerialTransport& transport_;
    const LinkGate& gate_;
    Desktop& desktop_;
    LinkFront& front_;
};

// Number of the first and last port of the automatic search.
inline constexpr qint16 kFirstComPort = 1;
inline constexpr qint16 kLastComPort = 4;

// The instrument's rates in baud, in the order of the search.
inline constexpr qint32 kBaudRates[] = {4800, 9600, 19200, 38400, 115200};
inline constexpr qint32 kUsualBaudRate = 19200;

// The settings text of a rate: no parity, 8 data bits, 2 stop bits.
QString LineSettings(qint32 baud);
