#include "link/MemoryTransfer.h"

#include <array>
#include <charconv>
#include <limits>

namespace {

constexpr qint64 kServeEventsMs = 20;  // between two looks at the user's events

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

// The number behind the first "=" of a reply, or at its head if there is none.
double SampleOf(const QString& reply) { return NearestEven(ReadHeadNumber(reply.mid(reply.indexOf(u'=') + 1))); }

}  // namespace

void MemoryTransfer::Begin(const MemorySize& size, const char* caption) {
    desktop_.BusyOn();
    front_.ShowTransfer(QString::fromLatin1(caption), size.LastAdr);
}

void MemoryTransfer::End() {
    front_.HideTransfer();
    desktop_.BusyOff();
}

void MemoryTransfer::ReadArb(const MemorySize& size) {
    Begin(size, size.readCaption);
    if (link_.LinkUp == 1) {
        for (int address = 0; address <= size.LastAdr && !gate_.Abandoned(); ++address) {
            ReadPoint(size, address);
            if (address % size.progressStep == 0) {
                front_.ShowProgress(address);
            }
        }
    }
    End();
}

void MemoryTransfer::ReadPoint(const MemorySize& size, int address) {
    StartPoint(link_.CommandText, size, address);
    link_.CommandText += u'?';
    transport_.QueryUnitBlock();
    if (link_.SerialFault == 1 && link_.LinkUp == 1) {
        return;  // cut short before the query was on the line: there is no reply
    }
    const double sample = SampleOf(link_.ReplyText);
    using Limits = std::numeric_limits<qint16>;
    // A number that no sample can be leaves the element as it is.
    if (sample >= Limits::min() && sample <= Limits::max()) {
        size.samples(memories_)[static_cast<std::size_t>(address)] = static_cast<qint16>(sample);
    }
}

void MemoryTransfer::SendArb(const MemorySize& size) {
    Begin(size, size.sendCaption);
    front_.HoldInput(true);
    servedMs_ = clock_.NowMs();
    link_.CommandText = QString::fromLatin1(size.startCommand);
    transport_.SendCommand();
    // A line that has stopped taking output has reported that already; the points after it would all be lost.
    for (int address = 0; address <= size.LastAdr && link_.LinkUp == 1 && !gate_.Abandoned(); ++address) {
        SendPoint(size, address);
        if (address % size.progressStep == 0) {
            front_.ShowProgress(address);
            ServeEvents();
        }
    }
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
    End();
}

// The points aren't paced, but the window must stay alive for minutes at 4800 baud.
void MemoryTransfer::ServeEvents() {
    if (clock_.NowMs() - servedMs_ >= kServeEventsMs) {
        clock_.ServeEvents();
        servedMs_ = clock_.NowMs();
    }
}

void MemoryTransfer::SendPoint(const MemorySize& size, int address) {
    const qint16 sample = size.samples(memories_)[static_cast<std::size_t>(address)];
    StartPoint(link_.CommandText, size, address);
    AppendNumber(link_.CommandText, sample);
    transport_.SendCommandFast();
}
