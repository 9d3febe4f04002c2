#include "link/MemoryTransfer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>

#include "platform/LineLoad.h"

namespace {

constexpr qint64 kServeEventsMs = 20;  // between two looks at the user's events
constexpr int kUsualValueLength = 3;   // characters of a sample that nobody knows yet

void AppendNumber(QString& text, int number) {
    std::array<char, 12> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text += QLatin1StringView(digits.data(), end);
}

// The start of a line for one point. The text keeps its room from line to line.
void StartPoint(QString& text, const MemorySize& size, int address) {
    text.resize(0);
    text += QLatin1StringView(size.pointCommand);
    AppendNumber(text, address);
    text += u'=';
}

// What stands behind the first "=" of a reply, or all of it if there is none.
QString ValueOf(const QString& reply) { return reply.mid(reply.indexOf(u'=') + 1); }

// Characters of a whole number.
int LengthOf(int number) {
    int length = number < 0 ? 2 : 1;
    for (int rest = number / 10; rest != 0; rest /= 10) {
        ++length;
    }
    return length;
}

// Characters of "arp4:100=", the head of a line for one point.
int HeadLength(const MemorySize& size, int address) {
    return static_cast<int>(std::strlen(size.pointCommand)) + LengthOf(address) + 1;
}

}  // namespace

void MemoryTransfer::Begin(const MemorySize& size, const char* caption, const TransferPace::Work& work) {
    moving_ = true;
    stopped_ = false;
    characterUs_ = static_cast<double>(LineTimeUs(1, std::max(transport_.Baud(), 1)));
    pace_.Begin(size.LastAdr, work, clock_.NowMs());
    desktop_.BusyOn();
    front_.ShowTransfer(QString::fromLatin1(caption), size.LastAdr);
}

// A stop that came behind the last point has stopped nothing.
TransferResult MemoryTransfer::End(const MemorySize& size) {
    moving_ = false;
    front_.HideTransfer();
    desktop_.BusyOff();
    using enum TransferResult::End;
    TransferResult result;
    result.points = pace_.Points();
    const bool stopped = stopped_ && result.points <= size.LastAdr;
    result.end = gate_.Abandoned() ? Abandoned : link_.LinkUp != 1 ? Fault : stopped ? Stopped : Whole;
    return result;
}

bool MemoryTransfer::Stop() {
    stopped_ = stopped_ || moving_;
    return moving_;
}

TransferProgress MemoryTransfer::Progress() const { return pace_.At(clock_.NowMs(), transport_.LineTimeLeftMs()); }

// A query has its pacing, in which the line works too, and its reply repeats the address.
double MemoryTransfer::QueryUs(const MemorySize& size, int address, int valueLength) const {
    const int head = HeadLength(size, address);
    return std::max((head + 2) * characterUs_, link_.PaceDelayMs * 1000.0) + (head + valueLength + 1) * characterUs_;
}

TransferResult MemoryTransfer::ReadArb(const MemorySize& size) {
    Begin(size, size.readCaption, [&](int address) { return QueryUs(size, address, kUsualValueLength); });
    AskPoints(size, [&](int address) {
        const double sample = NearestEven(ReadHeadNumber(ValueOf(link_.ReplyText)));
        using Limits = std::numeric_limits<qint16>;
        // A number that no sample can be leaves the element as it is.
        if (sample >= Limits::min() && sample <= Limits::max()) {
            Sample(size, address) = static_cast<qint16>(sample);
        }
        return true;
    });
    return End(size);
}

TransferResult MemoryTransfer::CompareArb(const MemorySize& size) {
    TransferResult found;
    Begin(size, size.compareCaption,
          [&](int address) { return QueryUs(size, address, LengthOf(Sample(size, address))); });
    bool isNumber = true;
    AskPoints(size, [&](int address) {
        const std::optional<double> value = FindHeadNumber(ValueOf(link_.ReplyText));
        isNumber = value.has_value();
        if (!isNumber || link_.LinkUp != 1) {
            return false;
        }
        const double there = NearestEven(*value);
        const qint16 here = Sample(size, address);
        if (there != here && ++found.differing == 1) {
            found.first = {address, here, there};
        }
        return true;
    });
    const TransferResult ended = End(size);
    const bool linked = ended.end != TransferResult::End::Fault && ended.end != TransferResult::End::Abandoned;
    found.end = linked && !isNumber ? TransferResult::End::NoNumber : ended.end;
    found.points = ended.points;
    return found;
}

// Asks for the points in turn. With each reply in ReplyText the taker is called; after a time-out with what is there.
void MemoryTransfer::AskPoints(const MemorySize& size, const ReplyTaker& take) {
    if (link_.LinkUp != 1) {
        return;
    }
    for (int address = 0; address <= size.LastAdr && Goes(); ++address) {
        StartPoint(link_.CommandText, size, address);
        link_.CommandText += u'?';
        transport_.QueryUnitBlock();
        const bool cutShort = link_.SerialFault == 1 && link_.LinkUp == 1;  // before the query was on the line
        if (cutShort || !take(address)) {
            return;
        }
        PointDone(size);
    }
}

void MemoryTransfer::PointDone(const MemorySize& size) {
    const int address = pace_.Points();
    pace_.PointDone();
    if (address % size.progressStep == 0) {
        front_.ShowProgress(address);
    }
}

TransferResult MemoryTransfer::SendArb(const MemorySize& size) {
    Begin(size, size.sendCaption, [&](int address) {
        return (HeadLength(size, address) + LengthOf(Sample(size, address)) + 1) * characterUs_;
    });
    front_.HoldInput(true);
    servedMs_ = clock_.NowMs();
    link_.CommandText = QString::fromLatin1(size.startCommand);
    transport_.SendCommand();
    // A line that has stopped taking output has reported that already; the points after it would all be lost.
    for (int address = 0; address <= size.LastAdr && link_.LinkUp == 1 && Goes(); ++address) {
        SendPoint(size, address);
        PointDone(size);
        ServeEvents();
    }
    moving_ = false;
    pace_.EndHere();
    if (gate_.Abandoned()) {
        transport_.CutLine();
    }
    link_.CommandText = QStringLiteral("are");
    transport_.SendCommand();
    // A port takes points faster than a slow line carries them. The transfer has ended when the line has.
    if (link_.LinkUp == 1) {
        transport_.AwaitIdleLine();
    }
    front_.HoldInput(false);
    return End(size);
}

// The points aren't paced, but the window must stay alive for minutes at 4800 baud.
void MemoryTransfer::ServeEvents() {
    if (clock_.NowMs() - servedMs_ >= kServeEventsMs) {
        clock_.ServeEvents();
        servedMs_ = clock_.NowMs();
    }
}

void MemoryTransfer::SendPoint(const MemorySize& size, int address) {
    StartPoint(link_.CommandText, size, address);
    AppendNumber(link_.CommandText, Sample(size, address));
    transport_.SendCommandFast();
}
