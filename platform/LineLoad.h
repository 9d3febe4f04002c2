#pragma once

#include <QtGlobal>

// What a line at this rate needs for so many characters of 11 bits: start, 8 data, 2 stop. In microseconds.
qint64 LineTimeUs(qint64 characters, qint32 baud);

// Estimates how long the line is still busy with what the port took. A port shows only what it takes, which may be
// thousands of characters ahead of the line. So the time that the characters need at the line's rate is counted, and
// corrected by better evidence: a driver that reports how much still waits in it, a complete reply, a port that took
// more than any driver holds.
//
// Also whether the line has stalled: for 3.0 s it took nothing of what waits for it, here or in the driver.
//
// Moments are in microseconds of any clock that never goes back. Without a clock of its own, so that tests script it.
class LineLoad {
  public:
    // A port was opened at this rate: the line is idle, nothing is known of the far end.
    void Opened(qint32 baud);
    // The port took this many characters, and then all that there was, or not.
    void Taken(qint64 characters, qint64 nowUs);
    void AllTaken() { refused_ = false; }
    void Refused(qint64 nowUs);
    // The driver says how many characters wait in it. 0 counts only from a driver that has reported another number
    // since the opening: a pseudo-terminal always says 0.
    void DriverHolds(qint64 characters, qint64 nowUs);
    // A complete reply came, so the line carries nothing any more.
    void Answered(qint64 nowUs) { freeUs_ = nowUs; }
    // What the driver held was thrown away; an adapter may still hold some of it.
    void Dropped(qint64 nowUs);

    // What the line needs for so many characters.
    qint64 TimeUs(qint64 characters) const { return LineTimeUs(characters, baud_); }
    // Until the line has carried all that the port took; 0 when it is idle or has stalled.
    qint64 LeftUs(qint64 nowUs) const { return freeUs_ > nowUs && !stalled_ ? freeUs_ - nowUs : 0; }

    // Stays true until the line takes something again.
    bool Stalled() const { return stalled_; }

  private:
    void NoteMove(qint64 nowUs);
    void LookForStall(qint64 nowUs);

    qint32 baud_ = 9600;
    qint64 freeUs_ = 0;          // moment at which the line has carried all that the port took
    bool driverTells_ = false;   // the driver knows how much waits in it
    bool farEndFaster_ = false;  // than its rate: it takes all at once
    qint64 driverHeld_ = 0;      // characters that waited in the driver at the last look
    qint64 movedUs_ = 0;         // when the port took something last, or the driver passed something on
    bool refused_ = false;       // the port did not take all of it at the last try
    bool stalled_ = false;
};
