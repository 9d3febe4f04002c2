#include "simulator/SimulatedInstrument.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace sim {

SimulatedInstrument::SimulatedInstrument(const Options& options)
    : logSink_(options.logSink), server_(options), wakeUp_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

SimulatedInstrument::~SimulatedInstrument() {
    Stop();
    ::close(wakeUp_);
}

bool SimulatedInstrument::Start(std::string* error) {
    const std::lock_guard lock(mutex_);
    if (running_) {
        *error = "the instrument runs already";
        return false;
    }
    if (wakeUp_ < 0) {
        *error = "no event descriptor left in the system";
        return false;
    }
    if (!server_.Open(error)) {
        return false;
    }
    stopping_ = false;
    vanishing_ = false;
    running_ = true;
    thread_ = std::thread([this] { Run(); });
    return true;
}

void SimulatedInstrument::Stop() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    Wake();
    if (thread_.joinable()) {
        thread_.join();
    }
    const std::lock_guard lock(mutex_);
    running_ = false;
    server_.Close();
    server_.RemoveLink();
    changed_.notify_all();
}

std::string SimulatedInstrument::DevicePath() const {
    const std::lock_guard lock(mutex_);
    return server_.DevicePath();
}

void SimulatedInstrument::Vanish() {
    std::unique_lock lock(mutex_);
    // The serving thread closes the device: while it waits on it, the system would keep the device alive.
    vanishing_ = true;
    Wake();
    changed_.wait(lock, [this] { return !server_.IsOpen(); });
}

bool SimulatedInstrument::IsThere() const {
    const std::lock_guard lock(mutex_);
    return server_.IsOpen();
}

std::string SimulatedInstrument::ReceivedBytes() const {
    const std::lock_guard lock(mutex_);
    return server_.Received();
}

std::vector<std::string> SimulatedInstrument::ReceivedLines() const {
    const std::lock_guard lock(mutex_);
    return server_.Lines();
}

std::string SimulatedInstrument::SentBytes() const {
    const std::lock_guard lock(mutex_);
    return server_.Sent();
}

void SimulatedInstrument::ClearLog() {
    const std::lock_guard lock(mutex_);
    server_.ClearLog();
}

void SimulatedInstrument::With(const std::function<void(Kl5276&)>& action) {
    const std::lock_guard lock(mutex_);
    action(server_.instrument);
}

void SimulatedInstrument::SetFaults(const Faults& faults) {
    {
        const std::lock_guard lock(mutex_);
        server_.SetFaults(faults);
    }
    Wake();
}

bool SimulatedInstrument::WaitForLine(const std::string& line, std::chrono::milliseconds atMost) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, atMost, [&] {
        const auto& lines = server_.Lines();
        return std::ranges::find(lines, line) != lines.end();
    });
}

bool SimulatedInstrument::WaitForLines(std::size_t count, std::chrono::milliseconds atMost) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, atMost, [&] { return server_.Lines().size() >= count; });
}

void SimulatedInstrument::Run() {
    std::unique_lock lock(mutex_);
    while (!stopping_) {
        if (vanishing_) {
            vanishing_ = false;
            server_.Close();
        }
        server_.Serve(Clock::now());
        const std::vector<LogEntry> entries = server_.TakeLog();
        const LineWait wait = server_.NextWait(Clock::now());
        changed_.notify_all();
        lock.unlock();
        if (logSink_) {
            std::ranges::for_each(entries, logSink_);
        }
        Sleep(wait);
        lock.lock();
    }
}

void SimulatedInstrument::Wake() const {
    const std::uint64_t one = 1;
    // It fails only while the descriptor is set to the brim, and then the thread wakes anyway.
    [[maybe_unused]] const ssize_t written = ::write(wakeUp_, &one, sizeof one);
}

void SimulatedInstrument::Sleep(const LineWait& wait) const {
    std::array<pollfd, 2> watched{pollfd{wakeUp_, POLLIN, 0}, pollfd{wait.descriptor, 0, 0}};
    watched[1].events = static_cast<short>((wait.forInput ? POLLIN : 0) | (wait.forOutput ? POLLOUT : 0));
    timespec time{};
    if (wait.until) {
        const auto left = std::max(std::chrono::nanoseconds(*wait.until - Clock::now()), std::chrono::nanoseconds(0));
        constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
        time.tv_sec = left.count() / kNanosecondsPerSecond;
        time.tv_nsec = left.count() % kNanosecondsPerSecond;
    }
    ::ppoll(watched.data(), watched.size(), wait.until ? &time : nullptr, nullptr);
    std::uint64_t wakeUps = 0;
    [[maybe_unused]] const ssize_t drained = ::read(wakeUp_, &wakeUps, sizeof wakeUps);
}

}  // namespace sim
