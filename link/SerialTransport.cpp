#include "link/SerialTransport.h"

namespace {
constexpr qint64 kReplyTimeoutMs = 3000;   // for each byte of a reply
constexpr qsizetype kLongestReply = 1024;  // characters; a line that never ends counts as a time-out
constexpr qsizetype kBatchLength = 512;    // characters of unpaced lines that are handed to the port at once
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
        ShowSerialError();
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

// False if the line has stalled. While it is merely busy the user's events are served.
bool SerialTransport::Flush() {
    inLine_ = 0;
    Com::OutputState state = com_.FlushOutput();
    while (state == Com::OutputState::Waiting) {
        clock_.ServeEvents();
        state = com_.FlushOutput();
    }
    return state == Com::OutputState::Taken;
}

void SerialTransport::Pace() {
    qint32 ms = state_.PaceDelayMs;
    clock_.WaitMs(ms);
}

void SerialTransport::QueryUnit() {
    if (state_.LinkUp == 0) {
        return;
    }
    SendQuery();
    if (state_.SerialFault == 1) {
        return;
    }
    state_.SerialErrorText = u" Data read error ( " + state_.CommandText + u" )";
    state_.SerialFault = 0;
    if (!com_.PortOpen()) {
        ShowSerialError();
        return;
    }
    state_.ReplyText.clear();
    AwaitLine();
    while (state_.ReplyText.size() <= kLongestReply && AwaitByte()) {
        com_.SetInputLen(1);
        const QChar character = ReadReplyChar();
        if (character == kCr) {
            return;
        }
        state_.ReplyText += character;
    }
    ShowSerialError();
}

// Behind the points of a memory a query can wait for many seconds until it is on the line.
void SerialTransport::AwaitLine() {
    while (com_.LineTimeLeftMs() > 0 && com_.InBufferCount() <= 0 && !com_.LineLost()) {
        clock_.ServeEvents();
    }
}

// False when no byte came within the time-out, or none can come any more.
bool SerialTransport::AwaitByte() {
    const qint64 since = clock_.NowMs();
    while (com_.InBufferCount() <= 0) {
        if (com_.LineLost() || clock_.NowMs() - since > kReplyTimeoutMs) {
            return false;
        }
    }
    return true;
}

QChar SerialTransport::ReadReplyChar() {
    const QByteArray input = com_.Input();
    return input.isEmpty() ? QChar() : QChar::fromLatin1(input.front());
}

void SerialTransport::ShowSerialError() {
    if (state_.SerialFault == 1) {
        return;
    }
    desktop_.BusyOff();
    desktop_.MessageBox(state_.SerialErrorText, QStringLiteral("Serial - Error"));
    state_.LinkUp = 0;
    front_.CheckRemote(false);
    state_.SerialFault = 1;
}
