#include "link/MemoryTransfer.h"

#include <limits>

namespace {

constexpr qint64 kServeEventsMs = 20;  // between two looks at the user's events

QString PointText(const MemorySize& size, int address) {
    return QString::fromLatin1(size.pointCommand) + QString::number(address) + u'=';
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

void MemoryTransfer::Read(const MemorySize& size) {
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
    link_.CommandText = PointText(size, address) + u'?';
    transport_.QueryUnitBlock();
    const double sample = SampleOf(link_.ReplyText);
    using Limits = std::numeric_limits<qint16>;
    // A number that no sample can be leaves the element as it is.
    if (sample >= Limits::min() && sample <= Limits::max()) {
        size.samples(memories_)[static_cast<std::size_t>(address)] = static_cast<qint16>(sample);
    }
}

void MemoryTransfer::Send(const MemorySize& size) {
    Begin(size, size.sendCaption);
    servedMs_ = clock_.NowMs();
    link_.CommandText = QString::fromLatin1(size.startCommand);
    transport_.SendCommand();
    // A line that has stopped taking output has reported that already; the points behind it would all be lost.
    for (int address = 0; address <= size.LastAdr && link_.LinkUp == 1 && !gate_.Abandoned(); ++address) {
        SendPoint(size, address);
        if (address % size.progressStep == 0) {
            front_.ShowProgress(address);
            ServeEvents();
        }
    }
    link_.CommandText = QStringLiteral("are");
    transport_.SendCommand();
    End();
}

// The points aren't paced, but the window must stay alive for minutes at 4800 baud.
void MemoryTransfer::ServeEvents() {
    if (clock_.NowMs() - servedMs_ >= kServeEventsMs) {
        qint32 moment = 0;
        clock_.WaitMs(moment);
        servedMs_ = clock_.NowMs();
    }
}

void MemoryTransfer::SendPoint(const MemorySize& size, int address) {
    const qint16 sample = size.samples(memories_)[static_cast<std::size_t>(address)];
    link_.CommandText = PointText(size, address) + QString::number(sample);
    transport_.SendCommandFast();
}
