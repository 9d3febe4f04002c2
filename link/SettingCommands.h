#pragma once

#include <QDateTime>
#include <functional>

#include "core/ProgramState.h"
#include "link/SerialTransport.h"

// The commands that set the instrument. They get no reply. Each routine does nothing unless LinkUp is 1, except that
// SendSweep always sends its "SW0". None has a failure of its own: a command lost on the way shows in the read-back.
class SettingCommands {
  public:
    SettingCommands(ProgramState& program, SerialTransport& transport)
        : panel_(program.panel), link_(program.link), numbers_(program.numbers), transport_(transport) {}

    // All of PanelState in the instrument's order. Cuts mFreq to 1 MHz for the triangular signal, in PanelState too.
    void SendAllToUnit();

    void SendSignal();
    void SendMode();
    void SendSweep();
    void SendReference();
    void SendModulation();
    void SendFrequency();
    void SendLevel();  // works out bmBereich anew
    void SendOffset();
    void SendOutput();
    void SendTimeDate();

    // The PC's clock, read anew for each field that is sent.
    void SetClock(std::function<QDateTime()> now) { now_ = std::move(now); }

  private:
    bool Linked() const { return link_.LinkUp == 1; }
    void Send(const QString& text);
    void Send(const char* word) { Send(QString::fromLatin1(word)); }
    void SendValue(const char* word, double value, const char* picture);
    void SendDepth(const char* word);

    PanelState& panel_;
    LinkState& link_;
    UserNumbers& numbers_;
    SerialTransport& transport_;
    std::function<QDateTime()> now_ = [] { return QDateTime::currentDateTime(); };
};
