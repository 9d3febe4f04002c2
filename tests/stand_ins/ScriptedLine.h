#pragma once

#include <QMap>
#include <QSet>
#include <QStringList>
#include <functional>
#include <limits>

#include "platform/Com.h"
#include "platform/LinkClock.h"

// What an instrument with these samples answers; nothing to what is no query of a point.
inline QByteArray PointReply(const QString& command, const auto& samples) {
    const std::size_t address = command.section(u':', 1).section(u'=', 0, 0).toUInt();
    return command.endsWith(u'?') ? command.chopped(1).toLatin1() + QByteArray::number(samples[address]) + '\r'
                                  : QByteArray();
}

// A clock that moves only as the test says.
class ScriptedClock : public LinkClock {
  public:
    qint64 nowMs = 0;
    std::function<void()> onWait = [] {};  // an event that enters during pacing

    qint64 NowMs() const override { return nowMs; }
    void WaitMs(qint32& ms) override;
};

// A serial control with a scripted far end: a reply for each query, each byte after a delay on the scripted clock.
class ScriptedLine : public Com {
  public:
    explicit ScriptedLine(ScriptedClock& clock) : clock_(clock) {}

    QMap<QString, QByteArray> replies;  // by the line without its CR; the reply needs its own CR
    std::function<QByteArray(const QString& line, const QString& settings)> reply;  // asked where replies has none
    qint64 byteDelayMs = 0;
    QSet<int> ports{1, 2, 3, 4};  // that can be opened
    bool takesOutput = true;
    int busyFlushes = 0;                                          // that take nothing yet
    int characterMs = 0;                                          // that the line needs for each, in both directions
    qsizetype portHolds = std::numeric_limits<qsizetype>::max();  // characters ahead of the line
    int restMs = 50;                                              // of a look for a byte that is not there
    qint64 lineFreeMs = 0;  // when the line has carried what it took, by the scripted clock

    QByteArray wire;       // all that was sent
    QStringList openings;  // "port: settings" of each successful opening

    QStringList Lines() const;

    void SetCommPort(int number) override { port_ = number; }
    bool SetSettings(const QString& settings) override;
    QString Settings() const override { return settings_; }
    bool PortOpen() const override { return open_; }
    bool SetPortOpen(bool open) override;
    bool LineLost() const override { return false; }
    void ClearOutBuffer() override;
    void ClearInBuffer() override { input_.clear(); }
    qsizetype InBufferCount() override;
    void SetInputLen(qsizetype count) override { inputLen_ = count; }
    QByteArray Input() override;
    void Output(char character) override { waiting_ += character; }
    OutputState FlushOutput() override;
    qint64 LineTimeLeftMs() override {
        return std::max<qint64>(lineFreeMs - clock_.nowMs, 0) + waiting_.size() * characterMs;
    }
    void ReplyComplete() override { lineFreeMs = 0; }
    void DropOutput() override { waiting_.clear(); }

  private:
    ScriptedClock& clock_;
    int port_ = 0;
    bool open_ = false;
    QString settings_;
    QByteArray waiting_;
    QByteArray input_;
    qint64 nextByteMs_ = 0;
    qsizetype inputLen_ = 0;
};
