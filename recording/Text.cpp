#include "recording/Text.h"

#include <algorithm>
#include <cstring>

namespace recording {
namespace {

using std::string_view;

constexpr qint64 kReadBytes = qint64{256} * 1024;
constexpr qint64 kSampleBytes = qint64{8} * 1024;  // at each of these places
constexpr qint64 kSamplePlaces = 32;
constexpr std::size_t kSampleLinesAtHead = 64;  // also where they are long
constexpr std::size_t kAll = static_cast<std::size_t>(-1);

bool IsHigh(char byte) { return (static_cast<unsigned char>(byte) & 0x80U) != 0; }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Three digits, and no fourth, follow; a digit stands in front.
bool SeparatesThousands(const QString& text, qsizetype at) {
    if (at == 0 || !IsDigit(text[at - 1]) || text.size() < at + 4) {
        return false;
    }
    const bool three = IsDigit(text[at + 1]) && IsDigit(text[at + 2]) && IsDigit(text[at + 3]);
    return three && (text.size() == at + 4 || !IsDigit(text[at + 4]));
}

char16_t PlainOf(const QString& text, qsizetype at) {
    switch (const char16_t c = text[at].unicode()) {
        case 0x2010:  // hyphens, dashes and minus signs
        case 0x2011:
        case 0x2012:
        case 0x2013:
        case 0x2212:
        case 0xFE63:
        case 0xFF0D:
        case 0x0096:  // the dash of Windows, read as Latin-1
            return u'-';
        case 0x00A0:  // blanks that do not break or are thin
        case 0x2007:
        case 0x2009:
        case 0x202F:
            return SeparatesThousands(text, at) ? u'\'' : u' ';
        case 0x2019:  // the apostrophe of print
            return SeparatesThousands(text, at) ? u'\'' : c;
        case 0x03BC:  // the Greek letter for micro, the sign for ohm
            return 0x00B5;
        case 0x2126:
            return 0x03A9;
        default:
            return c;
    }
}

QString Decoded(string_view line) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QByteArrayView bytes(line.data(), static_cast<qsizetype>(line.size()));
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

}  // namespace

LineSource::LineSource(QIODevice& device, qint64 from, qint64 most)
    : device_(device), bytesLeft_(most), piece_(std::min(kReadBytes, most), Qt::Uninitialized) {
    device_.seek(0);
    const QByteArray head = device_.peek(3);
    isUtf16_ = head.startsWith("\xFF\xFE") || head.startsWith("\xFE\xFF");
    if (isUtf16_) {
        const bool littleEnd = head.startsWith("\xFF\xFE");
        utf16_ = QStringDecoder(littleEnd ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
        from = std::max<qint64>(from - from % 2, 2);
    } else if (head.startsWith("\xEF\xBB\xBF")) {
        from = std::max<qint64>(from, 3);
    }
    device_.seek(from);
    if (string_view partOfALine; from > 3) {
        Next(&partOfALine);
    }
}

bool LineSource::Next(string_view* line) {
    begin_ = next_;
    scanned_ = std::max(scanned_, begin_);
    std::size_t end = FindEnd();
    while (end == std::string::npos && Refill()) {
        end = FindEnd();
    }
    if (end == std::string::npos) {
        if (begin_ == buffer_.size()) {
            return false;
        }
        end = next_ = scanned_ = buffer_.size();
    }
    ++number_;
    *line = string_view(buffer_).substr(begin_, end - begin_);
    if (hasHighBytes_ && std::ranges::any_of(*line, IsHigh)) {
        *line = Normalised(*line);
    }
    return true;
}

// The end of the line that begins at begin_, or npos if it may lie beyond what was read. Each byte is looked at once,
// so that a text in one line takes no longer.
std::size_t LineSource::FindEnd() {
    if (lineFeed_ < scanned_ || lineFeed_ == buffer_.size()) {
        lineFeed_ = std::min(buffer_.find('\n', scanned_), buffer_.size());
    }
    const void* const found = std::memchr(buffer_.data() + scanned_, '\r', lineFeed_ - scanned_);
    if (found == nullptr) {
        scanned_ = lineFeed_;
        if (lineFeed_ == buffer_.size()) {
            return std::string::npos;
        }
        next_ = lineFeed_ + 1;
        return lineFeed_;
    }
    const auto carriageReturn = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data());
    const std::size_t behind = std::min(buffer_.find_first_not_of('\r', carriageReturn), buffer_.size());
    scanned_ = carriageReturn;
    if (behind == buffer_.size() && !ended_) {
        return std::string::npos;  // a line feed may follow
    }
    next_ = behind < buffer_.size() && buffer_[behind] == '\n' ? behind + 1 : carriageReturn + 1;
    return carriageReturn;
}

// Reads on, behind what is left. False once at the end of the text, so that a line without an end gets its turn.
bool LineSource::Refill() {
    if (ended_) {
        return false;
    }
    buffer_.erase(0, begin_);
    scanned_ -= begin_;
    begin_ = next_ = 0;
    const std::size_t old = buffer_.size();
    const qint64 got = device_.read(piece_.data(), std::min(piece_.size(), bytesLeft_));
    bytesLeft_ -= std::max<qint64>(got, 0);
    readFailed_ = got < 0;
    ended_ = got <= 0;
    const QByteArrayView piece(piece_.constData(), std::max<qint64>(got, 0));
    bytesRead_ += piece.size();
    if (isUtf16_) {
        buffer_ += QString(utf16_(piece)).toStdString();
    } else {
        buffer_.append(piece.data(), static_cast<std::size_t>(piece.size()));
    }
    EndAtZeroByte(old);
    lineFeed_ = buffer_.size();
    hasHighBytes_ = (hasHighBytes_ && old > 0) ||
                    std::any_of(buffer_.begin() + static_cast<std::ptrdiff_t>(std::min(old, buffer_.size())),
                                buffer_.end(), IsHigh);
    return true;
}

void LineSource::EndAtZeroByte(std::size_t newFrom) {
    const std::size_t zero = buffer_.find('\0', newFrom);
    if (zero == std::string::npos) {
        return;
    }
    const auto isText = [](char byte) { return byte != '\0' && byte != '\x1A' && byte != '\r' && byte != '\n'; };
    isBinary_ = std::any_of(buffer_.begin() + static_cast<std::ptrdiff_t>(zero), buffer_.end(), isText);
    for (QByteArray rest; !isBinary_ && !(rest = device_.read(kReadBytes)).isEmpty();) {
        isBinary_ = std::ranges::any_of(isUtf16_ ? QString(utf16_(rest)).toStdString() : rest.toStdString(), isText);
    }
    buffer_.resize(zero);
    ended_ = true;
}

string_view LineSource::Normalised(string_view line) {
    const QString text = Decoded(line);
    QString plain = text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        plain[i] = PlainOf(text, i);
    }
    return line_ = plain.toStdString();
}

std::vector<std::string> SampleLines(QIODevice& device) {
    std::vector<std::string> lines;
    const auto take = [&lines](LineSource source, std::size_t most) {
        string_view line;
        while (lines.size() < most && source.Next(&line)) {
            if (line.find_first_not_of(" \t\f\v") != string_view::npos) {
                lines.emplace_back(line);
            }
        }
    };
    const qint64 size = device.size();
    if (size <= kSampleBytes * kSamplePlaces) {
        take(LineSource(device), kAll);
        return lines;
    }
    take(LineSource(device), kSampleLinesAtHead);
    for (qint64 place = 0; place < kSamplePlaces; ++place) {
        take(LineSource(device, size / kSamplePlaces * place, kSampleBytes), kAll);
        if (lines.size() > kSampleLinesAtHead) {
            lines.pop_back();  // it may be cut off
        }
    }
    return lines;
}

}  // namespace recording
