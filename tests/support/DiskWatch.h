#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

// The operations by which this process changes the disk, in all libraries that it has loaded. A test kills it at any of
// them.
struct DiskWatch {
    bool watched = false;
    std::string done{};               // one letter each: write, sync, unlink, rename
    std::size_t fatal = 0;            // the process dies at the head of this one, counted from 1
    std::function<void()> created{};  // runs once, as soon as a file has been made
    std::function<void()> waits{};    // runs once, as soon as the engine waits for a lock
};
extern DiskWatch operations;

// Runs work in a process of its own.
pid_t StartChild(const auto& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    return child;
}

inline int WaitStatus(pid_t child) {
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

int InChild(const auto& work) { return WaitStatus(StartChild(work)); }
