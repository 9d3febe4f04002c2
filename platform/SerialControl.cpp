#include "platform/SerialControl.h"

#include <QRegularExpression>
#include <QThread>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace {

constexpr int kOutputRestMs = 20;
constexpr int kInputRestMs = 1;
constexpr int kLossWatchMs = 500;
constexpr qint64 kReadBufferBytes = 4096;  // a far end that never falls silent must not fill the memory
constexpr qint64 kAdapterLatencyMs = 20;   // what adapters hold characters back for
constexpr std::size_t kBlockBytes = 256;   // a driver frees its room in blocks; small ones show that a slow line moves

// The rate of "19200,N,8,2", in baud; 0 if the text makes no sense.
qint32 RateOf(const QString& settings) {
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,7}),N,8,2$"));
    return pattern.match(settings).captured(1).toInt();
}

// Keeps a second program of this kind off the port, also where the system's own exclusion lets root through.
bool LockPort(const QSerialPort& port) {
#ifdef Q_OS_UNIX
    return ::flock(static_cast<int>(port.handle()), LOCK_EX | LOCK_NB) == 0;
#else
    return true;
#endif
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
    if (RateOf(settings) == 0) {
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
    if (device.isEmpty()) {
        return false;
    }
    const qint32 baud = RateOf(settings_);
    port_.setPortName(device);
    port_.setBaudRate(baud);
    port_.setParity(QSerialPort::NoParity);
    port_.setDataBits(QSerialPort::Data8);
    port_.setStopBits(QSerialPort::TwoStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!port_.open(QIODevice::ReadWrite)) {
        return false;
    }
    if (!LockPort(port_)) {
        port_.close();
        return false;
    }
    open_ = true;
    lost_ = false;
    waiting_.clear();
    load_.Opened(baud);
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
        if (load_.Stalled()) {
            port_.clear(QSerialPort::Output);  // closing would wait for a line that takes nothing
        }
        port_.close();
    }
    open_ = false;
    lost_ = false;
    waiting_.clear();
}

// The last command must leave whole at the rate it was sent with, before the port's own settings are restored. The
// system's drain knows nothing of the buffer in an adapter, so the line is given its time first.
void SerialControl::Drain() {
    OutputState state = OutputState::Waiting;
    while (!load_.Stalled() && state == OutputState::Waiting) {
        state = FlushOutput();
    }
    for (qint64 leftMs = LineTimeLeftMs(); leftMs > 0; leftMs = LineTimeLeftMs()) {
        QThread::msleep(static_cast<unsigned long>(std::min<qint64>(leftMs, kOutputRestMs)));
        LookForLoss();
    }
    QThread::msleep(kAdapterLatencyMs);
#ifdef Q_OS_UNIX
    if (!lost_ && !load_.Stalled()) {
        ::tcdrain(port_.handle());
    }
#endif
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
        whenLost_();
    }
}

void SerialControl::ClearOutBuffer() {
    if (load_.Stalled() || lost_) {
        DropOutput();
    }
}

void SerialControl::DropOutput() {
    waiting_.clear();
    if (open_ && !lost_) {
        port_.clear(QSerialPort::Output);
        load_.Dropped(NowUs());
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

// Gives the port what it takes at once, in blocks. False: it takes nothing more for now.
bool SerialControl::Hand() {
    while (!waiting_.empty()) {
        const std::size_t block = std::min(waiting_.size(), kBlockBytes);
#ifdef Q_OS_UNIX
        const qint64 taken = ::write(port_.handle(), waiting_.data(), block);
#else
        const bool busy = port_.bytesToWrite() > 0 && !port_.waitForBytesWritten(0);
        const qint64 taken = busy ? 0 : port_.write(waiting_.data(), static_cast<qint64>(block));
#endif
        if (taken <= 0) {
            return false;
        }
        waiting_.erase(0, static_cast<std::size_t>(taken));
        load_.Taken(taken, NowUs());
    }
    return true;
}

void SerialControl::AwaitRoom() {
#ifdef Q_OS_UNIX
    pollfd line{static_cast<int>(port_.handle()), POLLOUT, 0};
    ::poll(&line, 1, kOutputRestMs);
#else
    port_.waitForBytesWritten(kOutputRestMs);
#endif
}

// A driver that reports how much waits in it shows whether the line moves; its count corrects the estimate.
void SerialControl::AskDriver() {
#ifdef Q_OS_UNIX
    int held = 0;
    if (!open_ || lost_ || ::ioctl(port_.handle(), TIOCOUTQ, &held) != 0) {
        return;
    }
    load_.DriverHolds(held, NowUs());
#endif
}

qint64 SerialControl::LineTimeLeftMs() {
    AskDriver();
    if (lost_ || load_.Stalled()) {
        return 0;
    }
    const qint64 leftUs = load_.LeftUs(NowUs()) + load_.TimeUs(static_cast<qint64>(waiting_.size()));
    return (leftUs + 999) / 1000;
}

Com::OutputState SerialControl::FlushOutput() {
    if (!open_ || lost_) {
        return OutputState::Taken;
    }
    const bool all = Hand();
    AskDriver();
    if (all) {
        load_.AllTaken();
        return load_.Stalled() ? OutputState::Stalled : OutputState::Taken;
    }
    if (!load_.Stalled()) {
        AwaitRoom();
    }
    LookForLoss();
    if (lost_) {
        return OutputState::Taken;
    }
    load_.Refused(NowUs());
    return load_.Stalled() ? OutputState::Stalled : OutputState::Waiting;
}
