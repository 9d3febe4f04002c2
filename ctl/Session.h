#pragma once

#include <QElapsedTimer>
#include <memory>

#include "core/ProgramState.h"
#include "ctl/Console.h"
#include "ctl/DryPort.h"
#include "link/Link.h"
#include "link/SilentFront.h"
#include "platform/EventClock.h"

// What stands ahead of the command.
struct Options {
    QString port = {};     // a device, or Com1 to Com4; empty: the preferences
    int rate = 0;          // baud; 0: the preferences
    int timeoutMs = 3000;  // for each byte of a reply
    bool log = false;
    bool quiet = false;
    bool dryRun = false;
    QString from = {};  // a setting file that a dry run starts from
};

// One connection to the instrument, for one command or for many. It is made when the first command needs it, and given
// back with "RM0" at the end, whatever went wrong.
class Session {
  public:
    explicit Session(const Options& options);
    ~Session();
    Q_DISABLE_COPY_MOVE(Session)

    // Each is false if it failed: the command then ends with Failure.
    bool Connect();
    bool ReadAll();   // all of program.panel, as the instrument reports it
    bool ReadBack();  // what belongs to the state that was sent
    bool IsSound() const;

    // Says what went wrong; the status to end with.
    int Failure();
    bool Stopped() const;  // the user wants the end
    // The device that the port means, "/dev/ttyUSB0"; empty if there is none.
    QString Device() const;
    const Options& options() const { return options_; }

    Console console;
    ProgramState program;
    Link& link() { return *link_; }

  private:
    class Clock;
    class Front;
    void WatchPort(class WatchedPort& port);
    void LookForStop();
    bool LineLost() const;
    QString FaultText() const;

    Options options_;
    std::unique_ptr<Com> com_;
    std::unique_ptr<LinkClock> clock_;
    std::unique_ptr<Front> front_;
    std::unique_ptr<Link> link_;
    std::optional<LinkOperation> operation_;
    QElapsedTimer elapsed_;
    QString fault_;        // the last box of the link
    QString wrongAnswer_;  // the query that got none
    int interruptsSeen_ = 0;
    bool answered_ = false;  // by anything
    bool linked_ = false;    // the instrument has answered
};

// The folder with the preferences and the com1 to com4 links, the panel's own.
QString PanelFolder();
