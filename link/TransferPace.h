#pragma once

#include <QtGlobal>
#include <functional>
#include <optional>

// How far a transfer is.
struct TransferProgress {
    int percent = 0;               // of the whole memory, 0 to 100, as far as the line has carried it
    std::optional<qint64> leftMs;  // until the line is free; empty while too little has gone by for an estimate
};

// Estimates how long a transfer still takes. A point counts by its work: the time that its characters need at the rate
// of the line. How long the work of the points so far has really taken then gives the time of the rest.
//
// Moments are in milliseconds of any clock that never goes back. Without a clock of its own, so that tests script it.
class TransferPace {
  public:
    // Gives the work of the point at an address, in microseconds, above 0.
    using Work = std::function<double(int address)>;

    // A transfer of the addresses from 0 to `last` begins.
    void Begin(int last, Work work, qint64 nowMs);
    // The point at the next address has been read, or handed to the port.
    void PointDone();
    // No point follows: the transfer ends when the line has carried those so far.
    void EndHere();

    int Points() const { return points_; }  // so far
    // Of what was handed over, the line still has to carry what takes `lineLeftMs` at its rate.
    TransferProgress At(qint64 nowMs, qint64 lineLeftMs) const;

  private:
    Work work_;
    qint64 beganMs_ = 0;
    // Points and their work: so far, of the whole memory, and when the transfer ends.
    int points_ = 0;
    int wholePoints_ = 0;
    int lastPoints_ = 0;
    double doneUs_ = 0.0;
    double wholeUs_ = 0.0;
    double lastUs_ = 0.0;
};
