#include "link/SerialTransport.h"

#include <algorithm>

namespace {
constexpr qsizetype kLongestReply = 1024;  // characters; a line that never ends counts as a time-out
constexpr qsizetype kBatchLength = 512;    // characters of unpaced lines that are handed to the port at once
constexpr qint32 kLineLookMs = 10;         // between two looks at a busy line
constexpr QChar kCr(13);
}  // namespace

void SerialTransport::SendCommand() { Send({true, true, Pacing::Line}); }
void SerialTransport::SendCommandFast() { Send({true, true, Pacing::None}); }
void SerialTransport::SendCommandSlow() { Send({false, true, Pacing::Character}); }
void SerialTransport::SendQuery() { Send({true, false, Pacing::Line}); }

void SerialTransport::Send(const SendForm& form) {
    state_.SerialFault = 0;
    if (!com_.PortOpen()) {
        return;
    }
    QString& text = state_.CommandText;
    if (const qsizetype comma = text.indexOf(u','); form.replaceComma && comma >= 0) {
        text[comma] = u'.';
    }
    state_.SerialErrorText = u" Data send error ( " + text + u" )";
    com_.ClearOutBuffer();
    com_.SetInputLen(1);
    if (form.alwaysAppendCr || !text.contains(kCr)) {
        text += kCr;
    }
    com_.ClearInBuffer();
    const bool taken = Write(form.pacing);
    // Without a link a command vanishes in silence, on a stalled line as on a closed port.
    if (!taken && state_.LinkUp == 1) {
        ShowSerialError(LinkFault::NothingTaken);
    } else if (form.pacing == Pacing::Line) {
        Pace();
    }
}

bool SerialTransport::Write(Pacing pacing) {
    const QString line = state_.CommandText;
    for (const QChar character : line) {
        com_.Output(character.toLatin1());
        if (pacing == Pacing::Character) {
            if (!Flush()) {
                return false;
            }
            Pace();
        }
    }
    inLine_ += line.size();
    if (pacing == Pacing::None && inLine_ < kBatchLength) {
        return true;  // a call of the system for each of thousands of short lines would cost more than the lines
    }
    return Flush();
}

// False if the line has stalled. While it is merely busy the user's events are served. An abandoned operation does
// not wait: what the port has not taken stays in line.
bool SerialTransport::Flush() {
    inLine_ = 0;
    Com::OutputState state = com_.FlushOutput();
    while (state == Com::OutputState::Waiting && !gate_.Abandoned()) {
        clock_.ServeEvents();
        state = com_.FlushOutput();
    }
    return state != Com::OutputState::Stalled || gate_.Abandoned();
}

void SerialTransport::Pace() {
    qint32 ms = state_.PaceDelayMs;
    clock_.WaitMs(ms);
}

void SerialTransport::QueryUnit() {
    if (state_.LinkUp == 0) {
        return;
    }
    if (gate_.Abandoned()) {
        EndCutQuery();
        return;
    }
    SendQuery();
    if (state_.SerialFault == 1) {
        return;
    }
    state_.SerialErrorText = u" Data read error ( " + state_.CommandText + u" )";
    state_.SerialFault = 0;
    if (!com_.PortOpen()) {
        ShowSerialError(LinkFault::PortNotOpened);
        return;
    }
    state_.ReplyText.clear();
    if (!AwaitLine(true)) {
        EndCutQuery();
        return;
    }
    while (state_.ReplyText.size() <= kLongestReply && AwaitByte()) {
        com_.SetInputLen(1);
        const QChar character = ReadReplyChar();
        if (character == kCr) {
            com_.ReplyComplete();
            state_.LastFault = LinkFault::None;
            return;
        }
        state_.ReplyText += character;
    }
    ShowSerialError(LinkFault::NoAnswer);
}

// Behind the points of a memory it can take many seconds until a query is on the line.
bool SerialTransport::AwaitLine(bool orReply) {
    for (qint64 leftMs = com_.LineTimeLeftMs(); leftMs > 0; leftMs = com_.LineTimeLeftMs()) {
        if (orReply && com_.InBufferCount() > 0) {
            return true;
        }
        if (gate_.Abandoned()) {
            return false;
        }
        qint32 ms = static_cast<qint32>(std::min<qint64>(leftMs, kLineLookMs));
        clock_.WaitMs(ms);
    }
    return com_.FlushOutput() != Com::OutputState::Stalled;
}

// An abandoned operation ends without a message.
void SerialTransport::EndCutQuery() {
    if (gate_.Abandoned()) {
        desktop_.BusyOff();
        state_.SerialFault = 1;
    } else {
        ShowSerialError(LinkFault::NothingTaken);
    }
}

void SerialTransport::CheckPort() {
    if (state_.LinkUp == 1 && com_.LineLost()) {
        ShowSerialError(LinkFault::PortGone);
    }
}

bool SerialTransport::AwaitIdleLine() {
    const bool idle = Flush() && AwaitLine(false) && !com_.LineLost();
    if (!idle && !gate_.Abandoned() && state_.LinkUp == 1) {
        ShowSerialError(LinkFault::NothingTaken);
    }
    return idle;
}

bool SerialTransport::OpenPort(int number, const QString& settings) {
    com_.SetCommPort(number);
    const bool settingsTaken = com_.SetSettings(settings);
    return com_.SetPortOpen(true) && settingsTaken;
}

bool SerialTransport::ClosePort() {
    if (!com_.PortOpen()) {
        return true;
    }
    const bool linked = state_.LinkUp == 1;
    front_.HoldInput(true);
    const bool idle = com_.LineLost() || AwaitIdleLine();
    front_.HoldInput(false);
    if (gate_.Abandoned()) {
        return true;
    }
    if (!idle && linked) {
        return false;
    }
    com_.SetPortOpen(false);
    return true;
}

void SerialTransport::CutLine() {
    inLine_ = 0;
    com_.DropOutput();
    state_.CommandText.clear();
    SendCommand();
}

// False when no byte came within the time-out, or none can come any more.
bool SerialTransport::AwaitByte() {
    const qint64 since = clock_.NowMs();
    while (com_.InBufferCount() <= 0) {
        if (com_.LineLost() || clock_.NowMs() - since > state_.ReplyTimeoutMs) {
            return false;
        }
    }
    return true;
}

QChar SerialTransport::ReadReplyChar() {
    const QByteArray input = com_.Input();
    return input.isEmpty() ? QChar() : QChar::fromLatin1(input.front());
}

void SerialTransport::ShowSerialError(LinkFault fault) {
    if (state_.SerialFault == 1) {
        return;
    }
    desktop_.BusyOff();
    desktop_.MessageBox(state_.SerialErrorText, QStringLiteral("Serial - Error"));
    state_.LinkUp = 0;
    state_.LastFault = com_.LineLost() ? LinkFault::PortGone : fault;
    front_.CheckRemote(false);
    state_.SerialFault = 1;
}
