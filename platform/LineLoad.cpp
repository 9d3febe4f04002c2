#include "platform/LineLoad.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 kStalledLineUs = 3'000'000;
constexpr qint64 kBitsPerCharacter = 11;       // start, 8 data, 2 stop
constexpr qint64 kPseudoTerminalKeeps = 4096;  // characters that are with the far end already, whatever is dropped
constexpr qint64 kAdapterHolds = 1024;  // characters that an adapter may still hold when its driver has none left

// More than any driver holds that does not report its count. A pseudo-terminal, which does not, holds 20 KiB (measured
// on Linux 6.18). The drivers of built-in ports and USB adapters hold a page of memory, 4 KiB on most systems and 64
// KiB at the most, and those of modem-class adapters 16 blocks; all of these report. A whole memory has 48,000
// characters or more.
constexpr qint64 kMostHeld = qint64{32} * 1024;

}  // namespace

qint64 LineTimeUs(qint64 characters, qint32 baud) { return characters * kBitsPerCharacter * 1'000'000 / baud; }

void LineLoad::Opened(qint32 baud) {
    *this = LineLoad();
    baud_ = std::max(baud, 1);
}

void LineLoad::Taken(qint64 characters, qint64 nowUs) {
    NoteMove(nowUs);
    freeUs_ = std::max(freeUs_, nowUs) + TimeUs(characters);
    farEndFaster_ = farEndFaster_ || (!driverTells_ && LeftUs(nowUs) > TimeUs(kMostHeld));
    if (farEndFaster_) {
        freeUs_ = nowUs;
    }
}

void LineLoad::Refused(qint64 nowUs) {
    if (!std::exchange(refused_, true)) {
        NoteMove(nowUs);
    }
    LookForStall(nowUs);
}

void LineLoad::DriverHolds(qint64 characters, qint64 nowUs) {
    if (characters < std::exchange(driverHeld_, characters)) {
        NoteMove(nowUs);
    }
    if (characters > 0) {
        driverTells_ = true;
        LookForStall(nowUs);
    }
    if (driverTells_) {
        freeUs_ = std::clamp(freeUs_, nowUs + TimeUs(characters), nowUs + TimeUs(characters + kAdapterHolds));
    }
}

void LineLoad::NoteMove(qint64 nowUs) {
    movedUs_ = nowUs;
    stalled_ = false;
}

void LineLoad::LookForStall(qint64 nowUs) { stalled_ = stalled_ || nowUs - movedUs_ >= kStalledLineUs; }

void LineLoad::Dropped(qint64 nowUs) {
    const qint64 kept = driverTells_ ? kAdapterHolds : kPseudoTerminalKeeps;
    freeUs_ = std::min(freeUs_, nowUs + TimeUs(kept));
}
