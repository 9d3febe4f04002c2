#include "platform/PeerUser.h"

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <unistd.h>
#endif

bool IsOfThisUser(qintptr socket) {
#if defined(Q_OS_LINUX)
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(static_cast<int>(socket), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
#elif defined(Q_OS_UNIX)
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(static_cast<int>(socket), &user, &group) == 0 && user == ::geteuid();
#else
    Q_UNUSED(socket);
    return true;
#endif
}
