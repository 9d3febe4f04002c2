#include <limits>

#include "AnsweringLink.h"

namespace {

constexpr qint16 kBefore = 77;

qint16 Expected(const QString& reply) {
    const qsizetype mark = reply.indexOf(u'=');
    const double sample = NearestEven(ReadHeadNumber(mark < 0 ? reply : reply.sliced(mark + 1)));
    using Limits = std::numeric_limits<qint16>;
    return sample >= Limits::min() && sample <= Limits::max() ? static_cast<qint16>(sample) : kBefore;
}

void RequireSamples(std::span<const qint16> memory, const MemorySize& size, const AnsweringLink& far, bool abandoned) {
    const auto answered = static_cast<std::size_t>(far.exchanges.size());
    const auto points = static_cast<std::size_t>(size.LastAdr) + 1;
    for (std::size_t i = 0; i < answered; ++i) {
        Require(memory[i] == Expected(far.exchanges[static_cast<qsizetype>(i)].answer),
                "a sample is what was answered");
    }
    const qint16 left = Expected(far.program.link.ReplyText);
    const std::size_t visited = abandoned ? std::min(answered + 1, points) : points;
    for (std::size_t i = answered; i < memory.size(); ++i) {
        Require(memory[i] == (i < visited ? left : kBefore), "behind a fault stands what was left, beyond it nothing");
    }
}

}  // namespace

// A text that begins as an answer of the 16k memory does is one.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QByteArray text = BytesOf(data, size);
    const bool large = text.startsWith("arp16");
    // The points behind a fault are thousands, so only some runs go through them.
    const bool abandons = size % 32 != 0;
    AnsweringLink far(text);
    far.program.memories.ArbMemory4.fill(kBefore);
    far.program.memories.ArbMemory16.fill(kBefore);
    far.desktop.whileShown = [&] {
        if (abandons) {
            far.link.gate.Abandon();
        }
    };
    {
        const LinkOperation operation = far.link.gate.Join();
        large ? far.link.memory.ReadArb(kMemory16k) : far.link.memory.ReadArb(kMemory4k);
    }
    far.RequireOneFaultAtMost();
    Require(far.front.hidden && !far.desktop.busy, "a transfer ends in the normal way");
    const MemorySize& read = large ? kMemory16k : kMemory4k;
    const MemorySize& other = large ? kMemory4k : kMemory16k;
    RequireSamples(read.samples(far.program.memories), read, far, abandons && far.program.link.LinkUp == 0);
    for (const qint16 sample : other.samples(far.program.memories)) {
        Require(sample == kBefore, "the other memory stays");
    }
    return 0;
}
