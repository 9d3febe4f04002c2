#include "simulator/LineServer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sim {
namespace {

constexpr std::size_t kFifoBytes = 16;
constexpr std::size_t kFastFifoBytes = 4096;
constexpr std::size_t kLongestText = 256;
constexpr int kBitsPerByte = 11;  // start, 8 data, 2 stop
constexpr int kUnknownRateBaud = 9600;
constexpr int kPassesPerService = 64;

// What a receiver at the wrong rate makes of the instrument's answers.
constexpr std::string_view kNoise = "\xF8\x9E\xE0\x86\xFC\r";
constexpr std::string_view kFiller = "UUUUUUUUUUUUUUUU";

}  // namespace

LineServer::LineServer(const Options& options) : options_(options) {
    instrument.state.model = options.model;
    instrument.state.versionText = options.versionText;
}

bool LineServer::Open(std::string* error) {
    if (options_.rate != 0 && std::ranges::find(kInstrumentRatesBaud, options_.rate) == kInstrumentRatesBaud.end()) {
        *error = "the instrument has no rate of " + std::to_string(options_.rate) + " baud";
        return false;
    }
    if (!line_.Open(options_.rate, error)) {
        return false;
    }
    if (!options_.linkPath.empty() && !line_.MakeLink(options_.linkPath, error)) {
        line_.Close();
        return false;
    }
    settings_ = line_.Settings();
    SetFaults(options_.faults);
    return true;
}

void LineServer::Close() {
    line_.Close();
    incoming_.Clear();
    outgoing_.Clear();
    unsent_.clear();
    text_.clear();
    textUnderstood_ = true;
    backlogged_ = false;
    endless_ = false;
}

void LineServer::SetFaults(const Faults& faults) {
    const TimePoint now = Clock::now();
    gate_.Set(faults, now);
    if (std::exchange(endless_, false)) {
        outgoing_.Clear();
        unsent_.clear();
    }
    outgoing_.Repace(now, ByteTime() + gate_.ByteDelay());
}

std::size_t LineServer::FifoBytes() const { return options_.realTime ? kFifoBytes : kFastFifoBytes; }

Nanoseconds LineServer::ByteTime() const {
    const int rate = settings_.rate > 0 ? settings_.rate : kUnknownRateBaud;
    return options_.realTime ? Nanoseconds(kBitsPerByte * 1'000'000'000LL / rate) : Nanoseconds(0);
}

void LineServer::Serve(TimePoint now) {
    // One pass is one filling of the FIFO; after a late start several may be due. A panel that never stops sending
    // must not keep the replies waiting.
    for (int pass = 0; line_.IsOpen() && pass < kPassesPerService; ++pass) {
        Fetch(now);
        if (!Deliver(now)) {
            break;
        }
    }
    if (line_.IsOpen()) {
        Send(now);
    }
}

void LineServer::Fetch(TimePoint now) {
    if (gate_.StallEnd(now)) {
        backlogged_ = false;
        return;
    }
    const std::size_t room = FifoBytes() - incoming_.Count();
    if (room == 0) {
        return;
    }
    std::array<char, kFastFifoBytes> bytes{};
    const std::size_t count = line_.Read(std::span(bytes).first(room));
    // The settings are read after the bytes: a panel that has just changed them sends only after that.
    settings_ = line_.Settings();
    const bool understood = options_.rate == 0 || (settings_.rate == options_.rate && settings_.eightNoneTwo);
    for (std::size_t i = 0; i < count; ++i) {
        // Bytes that have waited for room in the FIFO follow the one before them without a gap.
        incoming_.Add(bytes[i], understood, backlogged_ ? TimePoint() : now, ByteTime());
    }
    backlogged_ = count == room;
}

bool LineServer::Deliver(TimePoint now) {
    bool any = false;
    while (const auto byte = incoming_.TakeDue(now)) {
        any = true;
        TakeByte(*byte);
    }
    return any;
}

void LineServer::TakeByte(const TimedByte& byte) {
    received_ += byte.value;
    textUnderstood_ = textUnderstood_ && byte.understood;
    if (byte.value == '\r') {
        EndLine(byte.due);
    } else if (text_.size() <= kLongestText) {
        text_ += byte.value;
    }
}

void LineServer::EndLine(TimePoint at) {
    const std::string text = std::exchange(text_, {});
    const bool understood = std::exchange(textUnderstood_, true);
    log_.push_back({at, true, understood, text + '\r'});
    if (!understood) {
        Queue(options_.silentOffRate ? std::string_view() : kNoise, at);
    } else if (text.size() > kLongestText) {
        ++instrument.state.ignoredTexts;
    } else if (gate_.VanishesAtLine()) {
        Close();
    } else {
        Answer(text, at);
    }
}

void LineServer::Answer(const std::string& text, TimePoint at) {
    lines_.push_back(text);
    if (const auto reply = instrument.Take(text)) {
        const ShapedReply shaped = gate_.Shape(text, *reply);
        Queue(shaped.bytes, at);
        endless_ = endless_ || shaped.endless;
    }
}

void LineServer::Queue(std::string_view bytes, TimePoint notBefore) {
    for (const char value : bytes) {
        outgoing_.Add(value, true, notBefore, ByteTime() + gate_.ByteDelay());
    }
}

void LineServer::Send(TimePoint now) {
    if (endless_ && outgoing_.Count() == 0 && unsent_.empty()) {
        Queue(kFiller, now);
    }
    while (const auto byte = outgoing_.TakeDue(now)) {
        unsent_ += byte->value;
    }
    if (!unsent_.empty()) {
        const std::size_t count = line_.Write(unsent_);
        LogSent(std::string_view(unsent_).substr(0, count), now);
        unsent_.erase(0, count);
    }
}

void LineServer::LogSent(std::string_view bytes, TimePoint now) {
    sent_ += bytes;
    for (const char value : bytes) {
        unloggedSent_ += value;
        if (value == '\r') {
            log_.push_back({now, false, true, std::exchange(unloggedSent_, {})});
        }
    }
    if (!unloggedSent_.empty() && outgoing_.Count() == 0) {
        log_.push_back({now, false, true, std::exchange(unloggedSent_, {})});
    }
}

LineWait LineServer::NextWait(TimePoint now) const {
    LineWait wait;
    if (!line_.IsOpen()) {
        return wait;
    }
    const auto stallEnd = gate_.StallEnd(now);
    wait.descriptor = line_.Descriptor();
    wait.forInput = !stallEnd && incoming_.Count() < FifoBytes();
    wait.forOutput = !unsent_.empty();
    wait.until = stallEnd;
    const auto wakeAt = [&wait](TimePoint at) { wait.until = std::min(wait.until.value_or(at), at); };
    if (incoming_.Count() > 0) {
        wakeAt(incoming_.LineDue());
    }
    if (unsent_.empty() && outgoing_.Count() > 0) {
        wakeAt(outgoing_.NextDue());
    }
    if (unsent_.empty() && outgoing_.Count() == 0 && endless_) {
        wakeAt(now);
    }
    return wait;
}

void LineServer::ClearLog() {
    received_.clear();
    lines_.clear();
    sent_.clear();
}

std::vector<LogEntry> LineServer::TakeLog() { return std::exchange(log_, {}); }

}  // namespace sim
