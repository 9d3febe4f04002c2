#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sim {

// The settings that the panel's side has put on the line.
struct LineSettings {
    int rate = 0;               // in baud; 0 for a rate that no serial line of this kind has
    bool eightNoneTwo = false;  // 8 data bits, no parity, 2 stop bits
};

// One end of a pseudo-terminal; the panel opens the other end as its serial port. Not thread-safe.
class PtyLine {
  public:
    PtyLine() = default;
    ~PtyLine() {
        Close();
        RemoveLink();
    }
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    // Makes a new pseudo-terminal, raw, at `rate` baud (0: the system's own), 8 data bits, no parity, 2 stop bits.
    // False, with the reason in `error`, if the system has none to give.
    bool Open(int rate, std::string* error);

    // Makes a symbolic link to the device. A link that leads nowhere or to a pseudo-terminal is replaced; anything
    // else at that path stays. False, with the reason in `error`, if there is no link afterwards.
    bool MakeLink(const std::string& path, std::string* error);

    // Takes the device away; a panel that has it open sees a hang-up. The link stays.
    void Close();

    // Removes the link, if it is still the one that was made here.
    void RemoveLink();

    bool IsOpen() const { return master_ >= 0; }
    int Descriptor() const { return master_; }
    const std::string& DevicePath() const { return devicePath_; }

    // Takes what the panel has sent, up to the size of `room`, without waiting. Returns the number of bytes.
    std::size_t Read(std::span<char> room);

    // Sends to the panel without waiting. Returns the number of bytes taken, 0 while the panel's side is full.
    std::size_t Write(std::string_view bytes);

    // What the panel has set by now.
    LineSettings Settings() const;

  private:
    bool OpenOtherEnd(int rate);

    int master_ = -1;
    // Held open so that the device lives on, with what it holds, between two panels.
    int otherEnd_ = -1;
    std::string devicePath_;
    std::string linkPath_;
    std::optional<struct stat> link_;
};

}  // namespace sim
