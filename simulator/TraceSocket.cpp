#include "simulator/TraceSocket.h"

#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <optional>

namespace sim {
namespace {

constexpr int kProbeMs = 1000;
constexpr qsizetype kMostBytes = sizeof(sockaddr_un{}.sun_path) - 1;

QString FolderForSockets() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (const QFileInfo folder(runtime); !runtime.isEmpty() && folder.isDir() && folder.isWritable()) {
        return runtime;
    }
    // Qt has no name for a temporary folder that is not there.
    const QString temporary = QDir::tempPath();
    return temporary.isEmpty() ? qEnvironmentVariable("TMPDIR") : temporary;
}

QString PathOf(const std::string& name) {
    const QString text = QString::fromStdString(name);
    return text.contains(u'/') ? QFileInfo(text).absoluteFilePath() : QDir(FolderForSockets()).absoluteFilePath(text);
}

// What is at that path; nothing if nothing is.
std::optional<struct stat> StatOf(const QString& path) {
    struct stat there {};
    return ::lstat(QFile::encodeName(path).constData(), &there) == 0 ? std::optional(there) : std::nullopt;
}

void Remove(const QString& path) { ::unlink(QFile::encodeName(path).constData()); }

}  // namespace

TraceSocket::TraceSocket(QLocalServer& server, const std::string& name) : server_(server), path_(PathOf(name)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
}

bool TraceSocket::Listen(std::string* error) {
    if (*error = Complaint(); !error->empty()) {
        return false;
    }
    // The server gets a name of its own, which it takes away again when it ends, and its socket is linked to the place
    // where others look for it: so the first of two programs has it.
    const QString own = path_ + u'.' + QString::number(QCoreApplication::applicationPid());
    if (!server_.listen(own)) {
        *error = path_.toStdString() + ": " + server_.errorString().toStdString();
        return false;
    }
    const bool isClaimed = Claim(own);
    Remove(own);
    if (!isClaimed) {
        *error = path_.toStdString() + ": is served already";
        server_.close();
    }
    return isClaimed;
}

bool TraceSocket::Claim(const QString& from) {
    const QByteArray own = QFile::encodeName(from);
    const QByteArray place = QFile::encodeName(path_);
    bool isLinked = ::link(own.constData(), place.constData()) == 0;
    if (!isLinked && IsLeftBehind()) {
        Remove(path_);
        isLinked = ::link(own.constData(), place.constData()) == 0;
    }
    if (const std::optional<struct stat> there = StatOf(path_); isLinked && there) {
        device_ = there->st_dev;
        node_ = there->st_ino;
    }
    return isLinked;
}

// What is wrong with the place, as a sentence; empty if a socket may lie there.
std::string TraceSocket::Complaint() const {
    if (const std::string complaint = ComplaintAboutFolder(); !complaint.empty()) {
        return complaint;
    }
    const std::optional<struct stat> there = StatOf(path_);
    if (there && !S_ISSOCK(there->st_mode)) {
        return path_.toStdString() + ": a file or folder is in the socket's place; remove it or choose another --name";
    }
    if (there && there->st_uid != ::geteuid()) {
        return path_.toStdString() + ": another user's socket is in this place; choose another --name";
    }
    return {};
}

std::string TraceSocket::ComplaintAboutFolder() const {
    const QFileInfo folder(QFileInfo(path_).path());
    const std::string name = folder.filePath().toStdString();
    // Behind the name stands a process number while the server begins; in front of it, a folder of its own.
    constexpr qsizetype kMargin = 10;
    if (QFile::encodeName(path_).size() + kMargin > kMostBytes) {
        return path_.toStdString() + ": the path is too long for a socket, which has " +
               std::to_string(kMostBytes - kMargin) + " bytes at most; choose a shorter --name";
    }
    if (!folder.isDir()) {
        return name + ": there is no such folder; make it or choose another --name";
    }
    if (!folder.isWritable()) {
        return name + ": you may not write to this folder; choose another --name";
    }
    return {};
}

// A socket whose server is gone refuses the connection.
bool TraceSocket::IsLeftBehind() const {
    QLocalSocket probe;
    probe.connectToServer(path_);
    return !probe.waitForConnected(kProbeMs) && probe.error() == QLocalSocket::ConnectionRefusedError;
}

void TraceSocket::Close() {
    // Looked up while it is open still: nothing else can have its number.
    const std::optional<struct stat> there = StatOf(path_);
    if (node_ != 0 && there && there->st_dev == device_ && there->st_ino == node_) {
        Remove(path_);
    }
    node_ = 0;
    server_.close();
}

}  // namespace sim
