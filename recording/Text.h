#pragma once

#include <QIODevice>
#include <QStringDecoder>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace recording {

// The lines of a text, one after the other, as UTF-8, whatever its encoding: ASCII, UTF-8, UTF-16 with a byte order
// mark, and Latin-1 in lines that are no UTF-8. A typographic minus becomes "-", a no-break space a blank, or "'" where
// it separates the thousands of a number. Holds no more of the text than the line in work and what was read ahead.
class LineSource {
  public:
    // From the first line that begins behind byte `from`; with 0, from the first line of all. Reads `most` bytes, so
    // that the last line may be cut off. The device is open and must outlive this.
    explicit LineSource(QIODevice& device, qint64 from = 0, qint64 most = std::numeric_limits<qint64>::max());

    // The next line without its end, which is LF, CR, or CRs and an LF. It holds until the next call. False at the end.
    bool Next(std::string_view* line);

    // Number of that line, from 1.
    std::size_t Number() const { return number_; }
    // Where in the device that line ends; about there in UTF-16.
    qint64 BytesDone() const { return bytesRead_ - static_cast<qint64>(buffer_.size() - next_); }
    // The text goes on behind a zero byte: it is none. Such bytes at the end only are padding.
    bool IsBinary() const { return isBinary_; }
    bool ReadFailed() const { return readFailed_; }

  private:
    std::size_t FindEnd();
    bool Refill();
    void EndAtZeroByte(std::size_t newFrom);
    std::string_view Normalised(std::string_view line);

    QIODevice& device_;
    QStringDecoder utf16_;
    bool isUtf16_ = false;
    qint64 bytesRead_ = 0;
    qint64 bytesLeft_;
    QByteArray piece_;  // what was read last
    std::string buffer_;
    std::size_t begin_ = 0;     // of the line in work
    std::size_t scanned_ = 0;   // from begin_ to here there is no line end
    std::size_t lineFeed_ = 0;  // the first one that is not behind us; the size if there is none
    std::size_t next_ = 0;      // where the line behind the found one begins
    bool hasHighBytes_ = false;
    bool ended_ = false;
    bool isBinary_ = false;
    bool readFailed_ = false;
    std::size_t number_ = 0;
    std::string line_;
};

// Lines from all over the text, or all of them where it is short, without empty ones.
std::vector<std::string> SampleLines(QIODevice& device);

}  // namespace recording
