#include "waveform/TraceReply.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>

#include "Fuzz.h"
#include "core/ArbMemory.h"
#include "core/Numbers.h"

namespace {

constexpr qint16 kBefore = 77;
constexpr std::size_t kSamples = 2048;

// The numbers of the text, rounded, before they are scaled; the last one of a short text repeated.
std::array<double, kSamples> NumbersOf(const QString& text) {
    const QStringList parts = text.split(u',');
    std::array<double, kSamples> numbers{};
    double last = 0.0;
    for (std::size_t i = 0; i < kSamples; ++i) {
        if (static_cast<qsizetype>(i) < parts.size()) {
            last = ReadHeadNumber(parts[static_cast<qsizetype>(i)]);
        }
        numbers[i] = NearestEven(last);
    }
    if (last == 0.0) {
        numbers.back() = numbers[kSamples - 2];
    }
    return numbers;
}

bool FitsSample(double number) { return number >= -32768.0 && number <= 32767.0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QString text = QString::fromUtf8(BytesOf(data, size));
    static std::array<qint16, kAddresses16k> buffer;
    buffer.fill(kBefore);
    const bool read = ReadTrace(text, buffer);

    Require(buffer[0] == kBefore && std::all_of(buffer.begin() + kSamples + 1, buffer.end(),
                                                [](qint16 sample) { return sample == kBefore; }),
            "only the samples 1 to 2048 are written");
    const std::array<double, kSamples> numbers = NumbersOf(text);
    const double highest = std::max(0.0, *std::max_element(numbers.begin(), numbers.end()));
    const double span = highest - std::min(255.0, *std::min_element(numbers.begin(), numbers.end()));
    const bool fits = std::all_of(numbers.begin(), numbers.end(), FitsSample);
    Require(read == (fits && (highest == 0.0 || (span != 0.0 && span <= 32767.0))), "a trace that fits is read");
    for (std::size_t i = 0; read && i < kSamples; ++i) {
        const double exact = highest == 0.0 ? numbers[i] : 1500.0 - 3000.0 * (highest - numbers[i]) / span;
        Require(std::fabs(buffer[i + 1] - exact) <= 0.5 + 1e-9, "a sample is the number, or its place in the span");
    }
    return 0;
}
