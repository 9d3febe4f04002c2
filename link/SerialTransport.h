#pragma once

#include "core/LinkState.h"
#include "core/Numbers.h"
#include "link/LinkFront.h"
#include "link/LinkGate.h"
#include "platform/Com.h"
#include "platform/Desktop.h"
#include "platform/LinkClock.h"

// The lines to and from the instrument. The command stands in CommandText, the reply in ReplyText; there is no
// checksum, no acknowledgement and no retry: pacing is the only flow control, and a time-out on a reply ends the link.
//
// No routine has a result: a fault is seen in SerialFault and LinkUp. A send on a closed port vanishes without a word.
class SerialTransport {
  public:
    SerialTransport(LinkState& state, const LinkGate& gate, Com& com, LinkClock& clock, Desktop& desktop,
                    LinkFront& front)
        : state_(state), gate_(gate), com_(com), clock_(clock), desktop_(desktop), front_(front) {}

    // Each appends a CR. The first "," becomes "." (the numbers in a command carry the user's separator), but not in
    // SendCommandSlow, whose commas are separators.
    void SendCommand();      // paced once, after the line
    void SendCommandFast();  // not paced: the points of a memory; kept until there are many, or another send follows
    void SendCommandSlow();  // paced after each character: the clock
    void SendQuery();        // as SendCommand, but no CR is added to a text that holds one

    // Sends CommandText and collects one line into ReplyText; at most ReplyTimeoutMs for each of its bytes, from when
    // the line has carried the query. Does nothing, and leaves ReplyText, while LinkUp is 0. In an abandoned operation,
    // and if it is abandoned before the line has carried the query, SerialFault is 1 without a message.
    void QueryUnit();
    // The form for the thousands of queries of a memory read.
    void QueryUnitBlock() { QueryUnit(); }

    // One message for a fault, and the link is down.
    void ShowSerialError(LinkFault fault);

    // For a command that no query follows: one message, and the link is down, if the port has gone with it.
    void CheckPort();

    // Serves the user's events until the line has carried all that was sent. False if it has stalled or its device has
    // vanished, which is a fault while there is a link, or if the operation is abandoned.
    bool AwaitIdleLine();
    bool PortOpen() const { return com_.PortOpen(); }
    // The device vanished behind the open port, which is a fault as soon as something is to be sent or read.
    bool LineLost() const { return com_.LineLost(); }
    // Called when that is noticed.
    void SetWhenLineLost(const std::function<void()>& whenLost) { com_.SetWhenLost(whenLost); }
    // Opens the port of this number, 1 to 4, with a settings text as "19200,N,8,2". False if it can't be opened, or
    // if the text makes no sense.
    bool OpenPort(int number, const QString& settings);
    // The rate that is in force, in baud.
    qint32 Baud() const { return static_cast<qint32>(ReadHeadNumber(com_.Settings())); }
    // How long the line is still busy with what was sent, as far as can be known.
    qint64 LineTimeLeftMs() const { return com_.LineTimeLeftMs(); }
    // Closes the port as soon as the line has carried all that was sent; until then the user's events are served.
    // In an abandoned operation the port stays open, for AbandonPort. False, with the port open, if the line stalled or
    // its device vanished in that time, while there was a link.
    bool ClosePort();
    // The same at the end of the program, when no window is left to serve.
    void AbandonPort() { com_.SetPortOpen(false); }
    // Drops the lines that are still on their way here, and ends the one that is cut by that.
    void CutLine();

  private:
    enum class Pacing { None, Line, Character };
    struct SendForm {
        bool replaceComma;
        bool alwaysAppendCr;
        Pacing pacing;
    };
    void Send(const SendForm& form);
    bool Write(Pacing pacing);
    bool Flush();
    void Pace();
    bool AwaitLine(bool orReply);
    void EndCutQuery();
    bool AwaitByte();
    QChar ReadReplyChar();

    LinkState& state_;
    const LinkGate& gate_;
    Com& com_;
    LinkClock& clock_;
    Desktop& desktop_;
    LinkFront& front_;
    qsizetype inLine_ = 0;  // characters that wait for more
};
