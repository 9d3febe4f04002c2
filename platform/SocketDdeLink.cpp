#include "platform/SocketDdeLink.h"

#include <algorithm>

#include "platform/PeerUser.h"

namespace {

constexpr int kManualMode = 2;
constexpr int kClosedMode = 0;
constexpr qint64 kMsPerTenth = 100;
constexpr qsizetype kLongestAnswerBytes = 1'000'000;  // a hundred times a trace

int LeftMs(const QDeadlineTimer& end) { return static_cast<int>(std::max<qint64>(end.remainingTime(), 0)); }

}  // namespace

QDeadlineTimer SocketDdeLink::StepEnd() const { return QDeadlineTimer(timeoutTenths_ * kMsPerTenth); }

bool SocketDdeLink::SetLinkMode(int mode) {
    Close();
    return mode == kClosedMode || (mode == kManualMode && Open());
}

// Where the other program may be found, the likelier places first.
QStringList SocketDdeLink::Places() const {
    const QString name = topic_.section(u'|', 0, 0);
    if (!folder_.isEmpty()) {
        return {folder_ + u'/' + name};
    }
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QStringList(name) : QStringList{runtime + u'/' + name, name};
}

// What another user serves in a folder that all may write to is none of ours.
bool SocketDdeLink::Connect(const QString& place, const QDeadlineTimer& end) {
    socket_ = std::make_unique<QLocalSocket>();
    socket_->connectToServer(place);
    const bool isConnected = socket_->waitForConnected(LeftMs(end)) && IsOfThisUser(socket_->socketDescriptor());
    if (!isConnected) {
        socket_.reset();
    }
    return isConnected;
}

bool SocketDdeLink::Open() {
    const QDeadlineTimer end = StepEnd();
    const QStringList places = Places();
    return std::any_of(places.begin(), places.end(), [&](const QString& place) { return Connect(place, end); }) &&
           Ask(QStringLiteral("initiate ") + topic_, end).has_value();
}

void SocketDdeLink::Close() {
    if (socket_ && socket_->state() == QLocalSocket::ConnectedState) {
        socket_->write("terminate\n");
        socket_->flush();
    }
    socket_.reset();
}

bool SocketDdeLink::LinkExecute(const QString& command) {
    return Ask(QStringLiteral("execute ") + command, StepEnd()).has_value();
}

bool SocketDdeLink::LinkRequest() {
    const std::optional<QString> item = Ask(QStringLiteral("request ") + item_, StepEnd());
    text_ = item.value_or(text_);
    return item.has_value();
}

// What stands behind the "ok" of the answer. After anything else the conversation is over: an answer that comes too
// late must not be taken for that of a later step.
std::optional<QString> SocketDdeLink::Ask(const QString& message, const QDeadlineTimer& end) {
    if (!socket_ || socket_->state() != QLocalSocket::ConnectedState) {
        return std::nullopt;
    }
    socket_->write(message.toUtf8() + '\n');
    const QByteArray answer = AnswerLine(end);
    if (answer == "ok" || answer.startsWith("ok ")) {
        return QString::fromUtf8(answer.sliced(2)).trimmed();
    }
    socket_.reset();
    return std::nullopt;
}

// One line without its end; empty if there is none in time, or the far end closes, or sends more than one line.
QByteArray SocketDdeLink::AnswerLine(const QDeadlineTimer& end) {
    QByteArray line;
    while (socket_->waitForReadyRead(LeftMs(end)) && line.size() <= kLongestAnswerBytes) {
        const QByteArray piece = socket_->readAll();
        line += piece;
        if (piece.contains('\n')) {
            return line.indexOf('\n') == line.size() - 1 ? line.trimmed() : QByteArray();
        }
    }
    return {};
}
