#include <pthread.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <mutex>
#include <string>

#include "simulator/CommandLine.h"
#include "simulator/LogText.h"
#include "simulator/SimulatedInstrument.h"

namespace {

constexpr int kFailureStatus = 1;

// Held while something is printed that the log must not cut through.
std::mutex outputMutex;

bool StartAndTell(sim::SimulatedInstrument& instrument, const std::string& linkPath) {
    const std::lock_guard lock(outputMutex);
    std::string error;
    if (!instrument.Start(&error)) {
        std::cerr << "kl5276-sim: " << error << std::endl;
        return false;
    }
    std::cout << instrument.DevicePath() << std::endl;
    if (!linkPath.empty()) {
        std::cout << "link " << linkPath << std::endl;
    }
    return true;
}

// Until a signal asks for the end. False if a device that had been taken away could not be brought back.
bool ServeSignals(const sigset_t& signals, sim::SimulatedInstrument& instrument, const std::string& linkPath) {
    for (;;) {
        int signal = 0;
        if (sigwait(&signals, &signal) != 0 || signal != SIGUSR1) {
            return true;
        }
        if (instrument.IsThere()) {
            instrument.Vanish();
        } else {
            instrument.Stop();
            if (!StartAndTell(instrument, linkPath)) {
                return false;
            }
        }
    }
}

int Run(int argc, char** argv) {
    sim::ProgramOptions options;
    if (const auto status = sim::ReadCommandLine(argc, argv, &options)) {
        return *status;
    }
    // Blocked before the instrument's thread begins, so that they all reach the wait below. A reader of the log that
    // goes away must not end the program with its link left behind.
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGUSR1}) {
        sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    const auto start = std::chrono::steady_clock::now();
    if (options.log) {
        options.instrument.logSink = [start](const sim::LogEntry& entry) {
            const std::lock_guard lock(outputMutex);
            std::cout << sim::LogText(entry, start) << std::endl;
        };
    }
    sim::SimulatedInstrument instrument(options.instrument);
    if (!StartAndTell(instrument, options.instrument.linkPath)) {
        return kFailureStatus;
    }
    const bool clean = ServeSignals(signals, instrument, options.instrument.linkPath);
    instrument.Stop();
    return clean ? 0 : kFailureStatus;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "kl5276-sim: " << failure.what() << std::endl;
        return kFailureStatus;
    }
}
