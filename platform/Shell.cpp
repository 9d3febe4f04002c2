#include "platform/Shell.h"

#include <QtGlobal>
#include <clocale>
#include <csignal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

volatile std::sig_atomic_t interrupts = 0;

extern "C" void CountInterrupt(int) { interrupts = interrupts + 1; }

}  // namespace

void KeepSystemTextsEnglish() {
#ifdef LC_MESSAGES
    std::setlocale(LC_MESSAGES, "C");
#endif
}

void CatchInterrupts() {
#ifdef Q_OS_UNIX
    struct sigaction action {};
    action.sa_handler = CountInterrupt;  // no SA_RESTART, so that a read that waits ends
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
    }
    std::signal(SIGPIPE, SIG_IGN);  // a reader of the results that goes away must not keep the link from its end
#else
    std::signal(SIGINT, CountInterrupt);
#endif
}

int Interrupts() { return interrupts; }

bool StandardErrorIsTerminal() {
#ifdef Q_OS_UNIX
    return ::isatty(STDERR_FILENO) == 1;
#else
    return false;
#endif
}
