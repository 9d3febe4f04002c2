#include "platform/SerialControl.h"

#include <QRegularExpression>
#include <QThread>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace {

constexpr qint64 kStalledLineUs = 3'000'000;
constexpr int kOutputRestMs = 20;
constexpr int kInputRestMs = 1;
constexpr int kLossWatchMs = 500;
constexpr qint64 kReadBufferBytes = 4096;    // a far end that never falls silent must not fill the memory
constexpr qint64 kDriverLatencyUs = 20'000;  // what adapters hold characters back for
constexpr qint64 kBitsPerCharacter = 11;     // start, 8 data, 2 stop
constexpr qint64 kAdapterBuffer = 1024;      // characters that an adapter holds when the driver has none left

struct LineSettings {
    qint32 baud;
    QSerialPort::Parity parity;
    QSerialPort::DataBits dataBits;
    QSerialPort::StopBits stopBits;
};

bool ParseSettings(const QString& text, LineSettings& line) {
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,7}),([NEO]),([5-8]),([12])$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch() || match.captured(1).toInt() == 0) {
        return false;
    }
    const QChar parity = match.captured(2).at(0);
    line.baud = match.captured(1).toInt();
    line.parity = parity == u'N'   ? QSerialPort::NoParity
                  : parity == u'E' ? QSerialPort::EvenParity
                                   : QSerialPort::OddParity;
    line.dataBits = static_cast<QSerialPort::DataBits>(match.captured(3).toInt());
    line.stopBits = match.captured(4) == u"2" ? QSerialPort::TwoStop : QSerialPort::OneStop;
    return true;
}

}  // namespace

SerialControl::SerialControl(PortFinder findPort) : findPort_(std::move(findPort)) {
    clock_.start();
    port_.setReadBufferSize(kReadBufferBytes);
    lossWatch_.setInterval(kLossWatchMs);
    QObject::connect(&lossWatch_, &QTimer::timeout, &lossWatch_, [this] { LookForLoss(); });
}

SerialControl::~SerialControl() { Close(); }

bool SerialControl::SetSettings(const QString& settings) {
    LineSettings line{};
    if (!ParseSettings(settings, line)) {
        return false;
    }
    settings_ = settings;
    return true;
}

bool SerialControl::SetPortOpen(bool open) {
    if (!open) {
        Close();
        return true;
    }
    return open_ || Open();
}

bool SerialControl::Open() {
    const QString device = findPort_(number_);
    LineSettings line{};
    if (device.isEmpty() || !ParseSettings(settings_, line)) {
        return false;
    }
    port_.setPortName(device);
    port_.setBaudRate(line.baud);
    port_.setParity(line.parity);
    port_.setDataBits(line.dataBits);
    port_.setStopBits(line.stopBits);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!port_.open(QIODevice::ReadWrite)) {
        return false;
    }
    open_ = true;
    lost_ = false;
    stalled_ = false;
    waiting_.clear();
    lineFreeUs_ = 0;
    untaken_ = 0;
    lossWatch_.start();
    return true;
}

void SerialControl::Close() {
    if (!open_) {
        return;
    }
    Drain();
    lossWatch_.stop();
    if (port_.isOpen()) {
        if (stalled_) {
            port_.clear(QSerialPort::Output);  // closing would wait for a line that takes nothing
        }
        port_.close();
    }
    open_ = false;
    lost_ = false;
    waiting_.clear();
}

// The last command must leave whole at the rate it was sent with, before the port's own settings are restored.
// The system's drain knows nothing of the buffer in an adapter, so the time that its characters need is waited for as
// well. No longer: a far end that takes all at once, as a simulated one, is done long before a line would be.
void SerialControl::Drain() {
    OutputState state = OutputState::Waiting;
    while (!stalled_ && state == OutputState::Waiting) {
        state = FlushOutput();
    }
    if (lost_ || stalled_) {
        return;
    }
#ifdef Q_OS_UNIX
    ::tcdrain(port_.handle());
#endif
    const qint64 restUs = lineFreeUs_ + kDriverLatencyUs - NowUs();
    if (lineFreeUs_ > 0 && restUs > 0) {
        const qint64 longestUs = LineTimeUs(kAdapterBuffer) + kDriverLatencyUs;
        QThread::usleep(static_cast<unsigned long>(std::min(restUs, longestUs)));
    }
}

// An open port whose device is gone would report that without end, so the system's port is given up at once. PortOpen
// stays true: the program decides when it closes the control.
void SerialControl::LookForLoss() {
    if (!open_ || lost_) {
        return;
    }
    bool gone = !port_.isOpen() || port_.error() == QSerialPort::ResourceError;
#ifdef Q_OS_UNIX
    pollfd line{static_cast<int>(port_.handle()), 0, 0};
    gone = gone || (::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0);
#endif
    if (gone) {
        lost_ = true;
        waiting_.clear();
        lossWatch_.stop();
        port_.close();
    }
}

qint64 SerialControl::LineTimeUs(qint64 characters) const {
    return characters * kBitsPerCharacter * 1'000'000 / std::max(port_.baudRate(), 1);
}

void SerialControl::CountLineTime(qint64 characters) {
    lineFreeUs_ = std::max(lineFreeUs_, NowUs()) + LineTimeUs(characters);
}

void SerialControl::ClearOutBuffer() {
    if (stalled_ && open_ && !lost_) {
        port_.clear(QSerialPort::Output);
        untaken_ = 0;
    }
    if (stalled_ || lost_) {
        waiting_.clear();
    }
}

void SerialControl::ClearInBuffer() {
    if (!open_ || lost_) {
        return;
    }
#ifdef Q_OS_UNIX
    int arrived = 0;
    if (port_.bytesAvailable() == 0 && ::ioctl(port_.handle(), FIONREAD, &arrived) == 0 && arrived == 0) {
        return;  // as nearly always between the thousands of points of a memory
    }
#endif
    port_.clear(QSerialPort::Input);
}

qsizetype SerialControl::InBufferCount() {
    if (!open_ || lost_) {
        return 0;
    }
    if (port_.bytesAvailable() == 0) {
        port_.waitForReadyRead(kInputRestMs);
    }
    const qsizetype count = port_.bytesAvailable();
    if (count == 0) {
        LookForLoss();
    }
    return count;
}

QByteArray SerialControl::Input() {
    return open_ && !lost_ ? port_.read(inputLen_ > 0 ? inputLen_ : port_.bytesAvailable()) : QByteArray();
}

// What the driver takes without waiting needs no notifier and no event.
void SerialControl::WriteAtOnce() {
#ifdef Q_OS_UNIX
    if (port_.bytesToWrite() == 0) {
        const ssize_t taken = ::write(port_.handle(), waiting_.data(), waiting_.size());
        if (taken > 0) {
            CountLineTime(taken);
            waiting_.erase(0, static_cast<std::size_t>(taken));
        }
    }
#endif
}

void SerialControl::NoteTaken() {
    const qint64 left = port_.bytesToWrite();
    if (left < untaken_) {
        CountLineTime(untaken_ - left);
        takenUs_ = NowUs();
        stalled_ = false;
    }
    untaken_ = left;
}

Com::OutputState SerialControl::FlushOutput() {
    if (!open_ || lost_) {
        return OutputState::Taken;
    }
    NoteTaken();
    if (!waiting_.empty()) {
        WriteAtOnce();
        if (!waiting_.empty()) {
            port_.write(waiting_.data(), static_cast<qint64>(waiting_.size()));
            waiting_.clear();
            untaken_ = port_.bytesToWrite();
            takenUs_ = NowUs();
        }
    }
    if (untaken_ == 0) {
        stalled_ = false;
        return OutputState::Taken;
    }
    port_.waitForBytesWritten(stalled_ ? 0 : kOutputRestMs);
    LookForLoss();
    if (lost_) {
        return OutputState::Taken;
    }
    NoteTaken();
    if (untaken_ == 0) {
        return OutputState::Taken;
    }
    // A driver with a full buffer takes nothing while the line works on it, for seconds at 4800 baud.
    stalled_ = stalled_ || NowUs() - std::max(takenUs_, lineFreeUs_) >= kStalledLineUs;
    return stalled_ ? OutputState::Stalled : OutputState::Waiting;
}
