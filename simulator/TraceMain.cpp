#include <pthread.h>

#include <QCoreApplication>
#include <csignal>
#include <iostream>
#include <string>

#include "simulator/TraceCommandLine.h"
#include "simulator/TraceSource.h"

namespace {

constexpr int kFailureStatus = 1;

int Run(int argc, char** argv) {
    sim::TraceProgramOptions options;
    if (const auto status = sim::ReadCommandLine(argc, argv, &options)) {
        return *status;
    }
    std::string error;
    std::array<std::string, 2> origins;
    if (!sim::LoadChannels(&options, &origins, &error)) {
        std::cerr << "qd204-sim: " << error << std::endl;
        return kFailureStatus;
    }
    // Blocked before the serving thread begins, so that they all reach the wait below, and the socket is taken away.
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    const QCoreApplication application(argc, argv);
    sim::TraceSource source(options.source);
    if (!source.Start(&error)) {
        std::cerr << "qd204-sim: " << error << std::endl;
        return kFailureStatus;
    }
    std::cout << source.SocketPath() << "\nchannel A: " << origins[0] << "\nchannel B: " << origins[1] << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "qd204-sim: " << failure.what() << std::endl;
        return kFailureStatus;
    }
}
