#include "simulator/TraceSource.h"

namespace sim {

bool TraceSource::Start(std::string* error) {
    Stop();
    server_ = std::make_unique<TraceServer>(options_);
    server_->moveToThread(&thread_);
    thread_.start();
    bool listens = false;
    QMetaObject::invokeMethod(
        server_.get(),
        [&] {
            listens = server_->Listen(error);
            socketPath_ = server_->SocketPath();
        },
        Qt::BlockingQueuedConnection);
    if (!listens) {
        Stop();
    }
    return listens;
}

void TraceSource::Stop() {
    if (!server_) {
        return;
    }
    QMetaObject::invokeMethod(
        server_.get(), [this] { server_->Close(); }, Qt::BlockingQueuedConnection);
    thread_.quit();
    thread_.wait();
    server_.reset();
    socketPath_.clear();
}

}  // namespace sim
