#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <string>

#include "simulator/TraceConversation.h"
#include "simulator/TraceSocket.h"

namespace sim {

// Serves conversations over a local socket, any number at a time. Lives in one thread, whose event loop drives it.
class TraceServer : public QObject {
  public:
    // The options must outlive the server.
    explicit TraceServer(const TraceOptions& options);

    // False with the reason in `error`, also while another program serves under that name.
    bool Listen(std::string* error) { return socket_.Listen(error); }

    // Cuts all conversations and takes the socket away.
    void Close();

    std::string SocketPath() const { return socket_.Path().toStdString(); }

  private:
    void Accept();
    void Serve(QLocalSocket* socket, TraceConversation& conversation);
    void Send(QLocalSocket* socket, const TraceAnswer& answer);
    void SendSlowly(QLocalSocket* socket, const QByteArray& bytes);

    const TraceOptions& options_;
    QLocalServer server_{this};
    TraceSocket socket_{server_, options_.socket};
};

}  // namespace sim
