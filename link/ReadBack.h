#pragma once

#include "core/ProgramState.h"
#include "link/LinkGate.h"
#include "link/SerialTransport.h"

// Fills PanelState from the instrument. Each routine returns at once while the link is down. A time-out within a
// routine doesn't stop it: its later fields are filled from what stands in ReplyText, and nothing is restored. A number
// that nothing can hold leaves its field as it is. What was reported stands in LinkState::Reported as well.
class ReadBack {
  public:
    ReadBack(ProgramState& program, SerialTransport& transport, const LinkGate& gate)
        : panel_(program.panel), link_(program.link), transport_(transport), gate_(gate) {}

    // All of it. The order matters: the level needs tmVPP, and the frequency bmWobbel, from the status. If the
    // operation is abandoned meanwhile, PanelState stays as it was.
    void ReadAllFromUnit();

    // What ReadAllFromUnit has left out in the state that it came to: the sweep's values while `sweepBefore`, bmWobbel
    // ahead of it, was off, and the frequency behind a sweep. The instrument answers these at any time.
    void ReadLeftOut(quint8 sweepBefore);

    void ReadStatus();

  private:
    void ReadSweep();  // asks only while bmWobbel, as it was before this read-back, is above 0
    void ReadModulation();
    void ReadLevel();
    void ReadFrequency();
    double Ask(const char* query);
    bool Answered() const { return link_.SerialFault != 1 && link_.LinkUp == 1; }
    template <typename... Fields>
    void Note(Fields... fields);
    void AskSweep();
    void AskMeasure(double PanelState::*field, const char* query);

    PanelState& panel_;
    LinkState& link_;
    SerialTransport& transport_;
    const LinkGate& gate_;
};
