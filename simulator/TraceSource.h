#pragma once

#include <QThread>
#include <memory>
#include <string>

#include "simulator/TraceServer.h"

namespace sim {

// A program that serves two traces as QD204 does, in a thread of its own. Belongs to the thread that made it.
class TraceSource {
  public:
    explicit TraceSource(TraceOptions options) : options_(std::move(options)) {}
    ~TraceSource() { Stop(); }
    Q_DISABLE_COPY_MOVE(TraceSource)

    // Begins to serve. False with the reason in `error`. May be called again after Stop.
    bool Start(std::string* error);

    // Cuts all conversations and takes the socket away. Harmless when it does not run.
    void Stop();

    // Where the socket lies; empty when it does not run.
    std::string SocketPath() const { return socketPath_; }

  private:
    const TraceOptions options_;
    QThread thread_;
    std::unique_ptr<TraceServer> server_;
    std::string socketPath_;
};

}  // namespace sim
