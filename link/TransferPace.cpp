#include "link/TransferPace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kUsPerMs = 1000.0;

// From then on there is an estimate, whichever comes first. The first moments show little: a far end may take thousands
// of characters at once.
constexpr double kFirstShare = 0.01;
constexpr double kFirstLookUs = 500'000.0;

// A line needs the time of its rate at least. Points that took clearly less went to a far end that is faster than the
// rate; there, as long as that lasts, each point takes the same time. Not nearer to 1, since the values in replies are
// longer or shorter than expected.
constexpr double kFasterThanRate = 0.8;

}  // namespace

void TransferPace::Begin(int last, Work work, qint64 nowMs) {
    *this = TransferPace();
    work_ = std::move(work);
    beganMs_ = nowMs;
    wholePoints_ = lastPoints_ = last + 1;
    for (int address = 0; address <= last; ++address) {
        wholeUs_ += work_(address);
    }
    lastUs_ = wholeUs_;
}

void TransferPace::PointDone() {
    doneUs_ += work_(points_);
    ++points_;
}

void TransferPace::EndHere() {
    lastPoints_ = points_;
    lastUs_ = doneUs_;
}

TransferProgress TransferPace::At(qint64 nowMs, qint64 lineLeftMs) const {
    const double elapsedUs = static_cast<double>(nowMs - beganMs_) * kUsPerMs;
    const double carriedUs = std::max(doneUs_ - static_cast<double>(lineLeftMs) * kUsPerMs, 0.0);
    if (carriedUs <= 0.0) {
        return {};
    }
    const bool faster = elapsedUs < kFasterThanRate * carriedUs;
    const double done = faster ? points_ : carriedUs;
    const double whole = faster ? wholePoints_ : wholeUs_;
    const double last = faster ? lastPoints_ : lastUs_;
    TransferProgress progress;
    progress.percent = static_cast<int>(100.0 * std::min(done / whole, 1.0));
    if (done >= kFirstShare * whole || elapsedUs >= kFirstLookUs) {
        progress.leftMs = std::llround(elapsedUs * std::max(last - done, 0.0) / done / kUsPerMs);
    }
    return progress;
}
