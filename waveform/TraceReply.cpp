#include "waveform/TraceReply.h"

#include <algorithm>
#include <limits>

#include "core/Numbers.h"

namespace {

using Limits = std::numeric_limits<qint16>;

constexpr double kScaledSpan = 2.0 * kTraceHeight;
constexpr double kScaledLowest = -kTraceHeight;

// The numbers of a reply, one after the other. Text without a comma stays: its number is met again and again, but read
// only once.
class ReplyNumbers {
  public:
    explicit ReplyNumbers(QStringView text) : rest_(text) { ReadHead(); }

    double Head() const { return head_; }

    void CutBehindComma() {
        if (comma_ >= 0) {
            rest_ = rest_.sliced(comma_ + 1);
            ReadHead();
        }
    }

  private:
    void ReadHead() {
        comma_ = rest_.indexOf(u',');
        head_ = ReadHeadNumber(comma_ < 0 ? rest_ : rest_.first(comma_));
    }

    QStringView rest_;
    qsizetype comma_ = -1;
    double head_ = 0.0;
};

// What the sibling's numbers span; they usually lie in 0 to 255.
struct Extremes {
    qint16 minimum = 255;
    qint16 maximum = 0;
};

bool Store(double number, qint16& sample, Extremes& extremes) {
    const double whole = NearestEven(number);
    if (whole < Limits::min() || whole > Limits::max()) {
        return false;
    }
    sample = static_cast<qint16>(whole);
    extremes.minimum = std::min(extremes.minimum, sample);
    extremes.maximum = std::max(extremes.maximum, sample);
    return true;
}

bool Scale(std::span<qint16> samples, const Extremes& extremes) {
    const int span = extremes.maximum - extremes.minimum;
    if (span == 0 || span > Limits::max()) {
        return false;
    }
    for (qint16& sample : samples) {
        const double scaled = (kScaledSpan / span) * (sample - extremes.minimum) + kScaledLowest;
        sample = static_cast<qint16>(NearestEven(scaled));
    }
    return true;
}

}  // namespace

bool ReadTrace(const QString& text, std::span<qint16, kAddresses16k> CopyBuffer) {
    const std::span<qint16> samples = CopyBuffer.subspan(1, kTraceSamples);
    ReplyNumbers numbers(text);
    Extremes extremes;
    for (qint16& sample : samples.first(kTraceSamples - 1)) {
        if (!Store(numbers.Head(), sample, extremes)) {
            return false;
        }
        numbers.CutBehindComma();
    }
    if (numbers.Head() == 0.0) {
        samples[kTraceSamples - 1] = samples[kTraceSamples - 2];
    } else if (!Store(numbers.Head(), samples[kTraceSamples - 1], extremes)) {
        return false;
    }
    return extremes.maximum == 0 || Scale(samples, extremes);
}
