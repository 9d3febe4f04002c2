#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

// The serial control: a port chosen by number, with the few properties that the link needs. An interface, so that
// tests script the other end.
class Com {
  public:
    virtual ~Com() = default;

    // Number of the port, 1 to 4. Takes effect when the port is opened.
    virtual void SetCommPort(int number) = 0;

    // "19200,N,8,2": baud, parity, data bits, stop bits. False if the text makes no sense; the old one stays then.
    virtual bool SetSettings(const QString& settings) = 0;
    virtual QString Settings() const = 0;

    // True from a successful opening to the closing, also while the device behind the port is gone.
    virtual bool PortOpen() const = 0;
    // Opens, or drains and closes, the port. False if it can't be opened or the settings can't be applied.
    virtual bool SetPortOpen(bool open) = 0;

    // The device vanished behind the open port: no byte will come or go until it is opened again.
    virtual bool LineLost() const = 0;
    // Called when that is noticed, also while nothing is sent. A control whose device can't vanish never calls.
    virtual void SetWhenLost(const std::function<void()>&) {}

    // OutBufferCount = 0: drops what an earlier failed send left behind, and nothing of a send that went well.
    virtual void ClearOutBuffer() = 0;
    // Setting InBufferCount to 0 drops what has arrived.
    virtual void ClearInBuffer() = 0;
    // Bytes that wait to be read. With none there it may rest for a moment, so that a waiting loop costs no load.
    virtual qsizetype InBufferCount() = 0;
    // Bytes that one read of Input takes.
    virtual void SetInputLen(qsizetype count) = 0;
    virtual QByteArray Input() = 0;

    // Puts one character in line to be sent, in order.
    virtual void Output(char character) = 0;
    // Hands what is in line to the port, and waits for a moment if the port can't take it all. Call it until it no
    // longer says Waiting. Stalled: the line has taken nothing for 3.0 s; what it did not take stays in line until
    // ClearOutBuffer, and while it stays stalled there is no second wait.
    enum class OutputState { Taken, Waiting, Stalled };
    virtual OutputState FlushOutput() = 0;
    // How long the line is still busy with what was put in line, as far as can be known; 0 when it is idle or stalled.
    virtual qint64 LineTimeLeftMs() = 0;
    // To be called when a reply came whole: the line carries nothing any more.
    virtual void ReplyComplete() = 0;
    // Drops all that is in line and all that the driver still holds, the rest of a line that has begun too.
    virtual void DropOutput() = 0;
};
