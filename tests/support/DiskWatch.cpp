// The C functions below stand in for those of the system, also in the libraries that this program loads.

#include "support/DiskWatch.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <csignal>
#include <cstdarg>
#include <utility>

DiskWatch operations;

namespace {

int Do(char letter, long number, auto... arguments) {
    if (operations.watched && (operations.done += letter).size() == operations.fatal) {
        ::kill(::getpid(), SIGKILL);
    }
    return static_cast<int>(::syscall(number, arguments...));
}

}  // namespace

extern "C" {
ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    return Do('w', SYS_pwrite64, file, bytes, count, at);
}
int fdatasync(int file) { return Do('s', SYS_fdatasync, file); }
int fsync(int file) { return Do('s', SYS_fsync, file); }
int unlink(const char* path) noexcept { return Do('u', SYS_unlink, path); }
int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int file = ::openat(AT_FDCWD, path, flags, va_arg(rest, mode_t));
    va_end(rest);
    if ((flags & O_CREAT) != 0 && operations.created) {
        std::exchange(operations.created, nullptr)();
    }
    return file;
}
// The engine waits by the one or the other, as its version has it.
int nanosleep(const timespec* time, timespec* left) {
    if (operations.waits) {
        std::exchange(operations.waits, nullptr)();
    }
    return static_cast<int>(::syscall(SYS_nanosleep, time, left));
}
int usleep(useconds_t microseconds) {
    const timespec time{microseconds / 1000000, static_cast<long>(microseconds % 1000000) * 1000};
    return ::nanosleep(&time, nullptr);
}
int rename(const char* from, const char* to) noexcept { return Do('r', SYS_rename, from, to); }
}
