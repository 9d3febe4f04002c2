#include "simulator/TraceServer.h"

#include <QTimer>
#include <memory>

namespace sim {
namespace {

constexpr qint64 kLongestMessageBytes = 1024;

}  // namespace

TraceServer::TraceServer(const TraceOptions& options) : options_(options) {
    connect(&server_, &QLocalServer::newConnection, this, &TraceServer::Accept);
}

void TraceServer::Close() {
    socket_.Close();
    for (QLocalSocket* const socket : server_.findChildren<QLocalSocket*>()) {
        socket->abort();
    }
}

void TraceServer::Accept() {
    while (QLocalSocket* const socket = server_.nextPendingConnection()) {
        const auto conversation = std::make_shared<TraceConversation>(options_);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, socket,
                [this, socket, conversation] { Serve(socket, *conversation); });
        Serve(socket, *conversation);
    }
}

void TraceServer::Serve(QLocalSocket* socket, TraceConversation& conversation) {
    while (socket->canReadLine()) {
        const QByteArray message = socket->readLine().trimmed();
        const TraceAnswer answer = conversation.Take({message.constData(), static_cast<std::size_t>(message.size())});
        if (options_.faults.delay.count() > 0) {
            QTimer::singleShot(options_.faults.delay, socket, [this, socket, answer] { Send(socket, answer); });
        } else {
            Send(socket, answer);
        }
    }
    if (socket->bytesAvailable() > kLongestMessageBytes) {
        socket->abort();
    }
}

void TraceServer::Send(QLocalSocket* socket, const TraceAnswer& answer) {
    if (answer.hangUp) {
        socket->disconnectFromServer();
    } else if (options_.faults.byteDelay.count() > 0) {
        SendSlowly(socket, QByteArray::fromStdString(answer.bytes));
    } else {
        socket->write(answer.bytes.data(), static_cast<qint64>(answer.bytes.size()));
    }
}

void TraceServer::SendSlowly(QLocalSocket* socket, const QByteArray& bytes) {
    if (!bytes.isEmpty()) {
        QTimer::singleShot(options_.faults.byteDelay, socket, [this, socket, bytes] {
            socket->write(bytes.first(1));
            SendSlowly(socket, bytes.sliced(1));
        });
    }
}

}  // namespace sim
