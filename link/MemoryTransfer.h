#pragma once

#include <functional>
#include <optional>

#include "core/MemorySize.h"
#include "core/ProgramState.h"
#include "link/LinkGate.h"
#include "link/SerialTransport.h"
#include "link/TransferPace.h"

// How a transfer ended.
struct TransferResult {
    enum class End {
        Whole,
        Stopped,    // by Stop
        Fault,      // of the link, which has been shown
        NoNumber,   // a comparison only: a reply held none
        Abandoned,  // at the gate
    };
    End end = End::Whole;
    int points = 0;  // from address 0 on; this is also the address at which the transfer ended early

    // A comparison only.
    struct Difference {
        int address;
        qint16 here;   // in the PC
        double there;  // in the instrument, as it was reported, rounded to a whole number
    };
    int differing = 0;                // of these points
    std::optional<Difference> first;  // the one at the lowest address
};

// Moves a whole arbitrary memory between the instrument and its array, one short line for each point, under the
// progress bar.
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
    Q_DISABLE_COPY_MOVE(MemoryTransfer)

    // A time-out takes the link down; each point after it then gets what stands in ReplyText, 0 with nothing, and
    // counts.
    TransferResult ReadArb(const MemorySize& size);
    // Ends when the line has carried all that was sent.
    TransferResult SendArb(const MemorySize& size);
    // Reads as ReadArb does and changes nothing. Ends at the first reply that does not come or holds no number.
    TransferResult CompareArb(const MemorySize& size);

    // The user wants the running transfer to end after its current point, in order. False if no point is left to move.
    bool Stop();
    // Of the running transfer, or of the last one.
    TransferProgress Progress() const;

  private:
    using ReplyTaker = std::function<bool(int address)>;  // false: no further point
    void AskPoints(const MemorySize& size, const ReplyTaker& take);
    void SendPoint(const MemorySize& size, int address);
    void PointDone(const MemorySize& size);
    bool Goes() const { return !stopped_ && !gate_.Abandoned(); }
    qint16& Sample(const MemorySize& size, int address) {
        return size.samples(memories_)[static_cast<std::size_t>(address)];
    }
    double QueryUs(const MemorySize& size, int address, int valueLength) const;
    void ServeEvents();
    void Begin(const MemorySize& size, const char* caption, const TransferPace::Work& work);
    TransferResult End(const MemorySize& size);

    ArbMemories& memories_;
    LinkState& link_;
    SerialTransport& transport_;
    const LinkGate& gate_;
    LinkClock& clock_;
    Desktop& desktop_;
    LinkFront& front_;
    TransferPace pace_;
    double characterUs_ = 0.0;  // what the line needs for one
    bool moving_ = false;       // points are still to come
    bool stopped_ = false;      // the user has stopped it
    qint64 servedMs_ = 0;       // when events were served last
};
