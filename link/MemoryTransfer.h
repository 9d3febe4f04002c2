#pragma once

#include "core/MemorySize.h"
#include "core/ProgramState.h"
#include "link/LinkGate.h"
#include "link/SerialTransport.h"

// Moves a whole arbitrary memory between the instrument and its array, one short line for each point, under the
// progress bar. Neither direction reports a failure of its own.
class MemoryTransfer {
  public:
    // A transfer that is abandoned at the gate ends after its current point.
    MemoryTransfer(ProgramState& program, SerialTransport& transport, const LinkGate& gate, LinkClock& clock,
                   Desktop& desktop, LinkFront& front)
        : memories_(program.memories),
          link_(program.link),
          transport_(transport),
          gate_(gate),
          clock_(clock),
          desktop_(desktop),
          front_(front) {}

    // A time-out takes the link down; each point after it then gets what stands in ReplyText, 0 with nothing.
    void ReadArb(const MemorySize& size);
    void SendArb(const MemorySize& size);

  private:
    void ReadPoint(const MemorySize& size, int address);
    void SendPoint(const MemorySize& size, int address);
    void ServeEvents();
    void Begin(const MemorySize& size, const char* caption);
    void End();

    ArbMemories& memories_;
    LinkState& link_;
    SerialTransport& transport_;
    const LinkGate& gate_;
    LinkClock& clock_;
    Desktop& desktop_;
    LinkFront& front_;
    qint64 servedMs_ = 0;  // when events were served last
};
