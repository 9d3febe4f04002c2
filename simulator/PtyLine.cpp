#include "simulator/PtyLine.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace sim {
namespace {

constexpr auto kRates = std::to_array<std::pair<speed_t, int>>({
    {B1200, 1200},
    {B2400, 2400},
    {B4800, 4800},
    {B9600, 9600},
    {B19200, 19200},
    {B38400, 38400},
    {B57600, 57600},
    {B115200, 115200},
    {B230400, 230400},
});

std::string SystemError(const std::string& what) { return what + ": " + std::strerror(errno); }

void CloseDescriptor(int& descriptor) {
    if (descriptor >= 0) {
        ::close(descriptor);
        descriptor = -1;
    }
}

// A link left behind by a killed instrument may lead to a pseudo-terminal that is someone else's by now.
bool IsReplaceable(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    struct stat behind {};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    if (length < 0) {
        return false;
    }
    const std::string_view name(target.data(), static_cast<std::size_t>(length));
    return name.starts_with("/dev/pts/") || ::stat(path.c_str(), &behind) != 0;
}

bool IsSameLink(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_ctim.tv_sec == b.st_ctim.tv_sec &&
           a.st_ctim.tv_nsec == b.st_ctim.tv_nsec;
}

}  // namespace

bool PtyLine::Open(int rate, std::string* error) {
    Close();
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, PATH_MAX> name{};
    if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
        ::ptsname_r(master_, name.data(), name.size()) != 0) {
        *error = SystemError("no pseudo-terminal");
        Close();
        return false;
    }
    devicePath_ = name.data();
    if (!OpenOtherEnd(rate)) {
        *error = SystemError(devicePath_);
        Close();
        return false;
    }
    return true;
}

bool PtyLine::OpenOtherEnd(int rate) {
    otherEnd_ = ::open(devicePath_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (otherEnd_ < 0 || ::tcgetattr(otherEnd_, &settings) != 0) {
        return false;
    }
    ::cfmakeraw(&settings);
    settings.c_cflag |= CSTOPB | CREAD | CLOCAL;
    // A panel puts back what it found when it closes the port. At the instrument's own rate, its last text is still
    // understood if it is fetched only after that.
    const auto* found = std::ranges::find(kRates, rate, &std::pair<speed_t, int>::second);
    if (found != kRates.end()) {
        ::cfsetispeed(&settings, found->first);
        ::cfsetospeed(&settings, found->first);
    }
    return ::tcsetattr(otherEnd_, TCSANOW, &settings) == 0;
}

bool PtyLine::MakeLink(const std::string& path, std::string* error) {
    struct stat there {};
    if (::lstat(path.c_str(), &there) == 0) {
        if (!IsReplaceable(path)) {
            *error = path + ": is there already and is no link of an earlier instrument";
            return false;
        }
        ::unlink(path.c_str());
    }
    // The user's folder of an installed panel is not there before its first start.
    std::error_code ignored;  // the link tells what is wrong
    if (const std::filesystem::path folder = std::filesystem::path(path).parent_path(); !folder.empty()) {
        std::filesystem::create_directories(folder, ignored);
    }
    if (::symlink(devicePath_.c_str(), path.c_str()) != 0 || ::lstat(path.c_str(), &there) != 0) {
        *error = SystemError(path);
        return false;
    }
    linkPath_ = path;
    link_ = there;
    return true;
}

void PtyLine::Close() {
    CloseDescriptor(otherEnd_);
    CloseDescriptor(master_);
}

void PtyLine::RemoveLink() {
    struct stat there {};
    if (link_ && ::lstat(linkPath_.c_str(), &there) == 0 && IsSameLink(there, *link_)) {
        ::unlink(linkPath_.c_str());
    }
    link_.reset();
}

std::size_t PtyLine::Read(std::span<char> room) {
    const ssize_t count = ::read(master_, room.data(), room.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::size_t PtyLine::Write(std::string_view bytes) {
    const ssize_t count = ::write(master_, bytes.data(), bytes.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

LineSettings PtyLine::Settings() const {
    termios settings{};
    if (::tcgetattr(master_, &settings) != 0) {
        return {};
    }
    const auto* found = std::ranges::find(kRates, ::cfgetospeed(&settings), &std::pair<speed_t, int>::first);
    constexpr tcflag_t kFrame = CSIZE | PARENB | CSTOPB;
    return {found == kRates.end() ? 0 : found->second, (settings.c_cflag & kFrame) == (CS8 | CSTOPB)};
}

}  // namespace sim
