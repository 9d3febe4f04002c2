#pragma once

#include <QElapsedTimer>
#include <QSerialPort>
#include <QTimer>
#include <functional>
#include <string>

#include "platform/Com.h"
#include "platform/LineLoad.h"

// Com over a port of this system.
class SerialControl : public Com {
  public:
    // Turns a port number into the device's name or path; empty where there is no such port.
    using PortFinder = std::function<QString(int)>;

    explicit SerialControl(PortFinder findPort);
    ~SerialControl() override;
    Q_DISABLE_COPY_MOVE(SerialControl)

    void SetCommPort(int number) override { number_ = number; }
    bool SetSettings(const QString& settings) override;
    QString Settings() const override { return settings_; }
    bool PortOpen() const override { return open_; }
    bool SetPortOpen(bool open) override;
    bool LineLost() const override { return lost_; }
    void SetWhenLost(const std::function<void()>& whenLost) override { whenLost_ = whenLost; }
    void ClearOutBuffer() override;
    void ClearInBuffer() override;
    qsizetype InBufferCount() override;
    void SetInputLen(qsizetype count) override { inputLen_ = count; }
    QByteArray Input() override;
    void Output(char character) override { waiting_ += character; }
    OutputState FlushOutput() override;
    qint64 LineTimeLeftMs() override;
    void ReplyComplete() override { load_.Answered(NowUs()); }
    void DropOutput() override;

  private:
    bool Open();
    void Close();
    void Drain();
    void LookForLoss();
    bool Hand();
    void AwaitRoom();
    void AskDriver();
    qint64 NowUs() const { return clock_.nsecsElapsed() / 1000; }

    PortFinder findPort_;
    QSerialPort port_;
    int number_ = 1;
    QString settings_ = QStringLiteral("9600,N,8,2");
    qsizetype inputLen_ = 0;
    std::string waiting_;  // not yet taken by the port
    bool open_ = false;
    bool lost_ = false;
    std::function<void()> whenLost_ = [] {};
    LineLoad load_;
    QElapsedTimer clock_;
    QTimer lossWatch_;  // sees an adapter pulled while the line is idle
};
