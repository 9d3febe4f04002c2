#include "stand_ins/ScriptedLine.h"

void ScriptedClock::WaitMs(qint32& ms) {
    nowMs += ms;
    onWait();
}

QStringList ScriptedLine::Lines() const {
    QStringList lines = QString::fromLatin1(wire).split(u'\r');
    lines.removeLast();  // behind the last CR
    return lines;
}

bool ScriptedLine::SetSettings(const QString& settings) {
    settings_ = settings;
    return true;
}

bool ScriptedLine::SetPortOpen(bool open) {
    open_ = open && ports.contains(port_);
    if (open_) {
        openings += QStringLiteral("%1: %2").arg(port_).arg(settings_);
    }
    return open_ == open;
}

qsizetype ScriptedLine::InBufferCount() {
    if (input_.isEmpty() || clock_.nowMs < nextByteMs_) {
        clock_.nowMs += restMs;
        return 0;
    }
    return 1;
}

QByteArray ScriptedLine::Input() {
    QByteArray taken = input_.first(inputLen_);
    input_.remove(0, inputLen_);
    nextByteMs_ = clock_.nowMs + byteDelayMs + characterMs;
    return taken;
}

void ScriptedLine::ClearOutBuffer() {
    if (!takesOutput) {
        waiting_.clear();
    }
}

Com::OutputState ScriptedLine::FlushOutput() {
    if (!takesOutput) {
        clock_.nowMs += 3000;
        return OutputState::Stalled;
    }
    if (busyFlushes > 0) {
        --busyFlushes;
        return OutputState::Waiting;
    }
    if (characterMs > 0) {
        if (LineTimeLeftMs() / characterMs > portHolds) {
            clock_.nowMs += 20;
            return OutputState::Waiting;
        }
        lineFreeMs = std::max(lineFreeMs, clock_.nowMs) + waiting_.size() * characterMs;
    }
    wire += waiting_;
    if (waiting_.endsWith('\r')) {
        const QString line = QString::fromLatin1(wire.sliced(wire.lastIndexOf('\r', -2) + 1)).chopped(1);
        input_ += replies.contains(line) ? replies.value(line) : reply ? reply(line, settings_) : QByteArray();
        nextByteMs_ = std::max(clock_.nowMs, characterMs > 0 ? lineFreeMs : 0) + byteDelayMs + characterMs;
    }
    waiting_.clear();
    return OutputState::Taken;
}
