#pragma once

#include <functional>

#include "core/ProgramState.h"
#include "platform/Com.h"
#include "platform/LinkClock.h"

// A port without a device: it gives each line to `sent`, without its CR, and answers as an instrument would that holds
// what `program` holds. So a command runs to its end, and nothing of `program` is changed by what it reads.
class DryPort : public Com {
  public:
    using TakeLine = std::function<void(const QString& line)>;
    DryPort(ProgramState& program, TakeLine sent) : program_(program), sent_(std::move(sent)) {}

    void SetCommPort(int) override {}
    bool SetSettings(const QString& settings) override {
        settings_ = settings;
        return true;
    }
    QString Settings() const override { return settings_; }
    bool PortOpen() const override { return open_; }
    bool SetPortOpen(bool open) override {
        open_ = open;
        return true;
    }
    bool LineLost() const override { return false; }
    void ClearOutBuffer() override {}
    void ClearInBuffer() override { reply_.clear(); }
    qsizetype InBufferCount() override { return reply_.size(); }
    void SetInputLen(qsizetype) override {}
    QByteArray Input() override;
    void Output(char character) override;
    OutputState FlushOutput() override { return OutputState::Taken; }
    qint64 LineTimeLeftMs() override { return 0; }
    void ReplyComplete() override {}
    void DropOutput() override {}

  private:
    QByteArray Answer(const QString& query) const;
    QByteArray Status() const;

    ProgramState& program_;
    TakeLine sent_;
    QString settings_;
    QString line_;
    QByteArray reply_;
    bool open_ = false;
};

// A clock that never moves: nothing is paced.
class StillClock : public LinkClock {
  public:
    qint64 NowMs() const override { return 0; }
    void WaitMs(qint32&) override {}
};
