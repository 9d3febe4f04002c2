#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>

namespace sim_test {

constexpr std::chrono::milliseconds kPatience{20000};

// The panel's end of the line, opened as a serial port would be.
class PanelEnd {
  public:
    explicit PanelEnd(const std::string& path, speed_t speed = B19200, tcflag_t stopBits = CSTOPB)
        : descriptor_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
        EXPECT_GE(descriptor_, 0) << path;
        SetLine(speed, stopBits);
    }
    ~PanelEnd() { ::close(descriptor_); }
    PanelEnd(const PanelEnd&) = delete;
    PanelEnd& operator=(const PanelEnd&) = delete;

    void SetLine(speed_t speed, tcflag_t stopBits = CSTOPB) const {
        termios settings{};
        ASSERT_EQ(::tcgetattr(descriptor_, &settings), 0);
        ::cfmakeraw(&settings);
        settings.c_cflag = (settings.c_cflag & ~static_cast<tcflag_t>(CSTOPB)) | stopBits;
        ::cfsetispeed(&settings, speed);
        ::cfsetospeed(&settings, speed);
        ASSERT_EQ(::tcsetattr(descriptor_, TCSANOW, &settings), 0);
    }

    // All of it, waiting for room as long as that takes.
    void Write(const std::string& bytes) const {
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = ::write(descriptor_, bytes.data() + done, bytes.size() - done);
            if (count > 0) {
                done += static_cast<std::size_t>(count);
            } else {
                ASSERT_TRUE(WaitFor(POLLOUT, kPatience)) << "no room on the line";
            }
        }
    }

    // Up to and with the next CR, or what has come when `atMost` passes without a byte, or when it is `longest`.
    std::string Read(std::chrono::milliseconds atMost = kPatience, std::size_t longest = 4096) const {
        std::string bytes;
        char value = 0;
        while (bytes.size() < longest && WaitFor(POLLIN, atMost) && ::read(descriptor_, &value, 1) == 1) {
            bytes += value;
            if (value == '\r') {
                break;
            }
        }
        return bytes;
    }

    std::string Ask(const std::string& query) const {
        Write(query + '\r');
        return Read();
    }

    bool SeesHangUp() const {
        pollfd watched{descriptor_, 0, 0};
        return ::poll(&watched, 1, static_cast<int>(kPatience.count())) == 1 && (watched.revents & POLLHUP) != 0;
    }

    int Descriptor() const { return descriptor_; }

  private:
    bool WaitFor(short event, std::chrono::milliseconds atMost) const {
        pollfd watched{descriptor_, event, 0};
        return ::poll(&watched, 1, static_cast<int>(atMost.count())) == 1 && (watched.revents & event) != 0;
    }

    int descriptor_;
};

}  // namespace sim_test
