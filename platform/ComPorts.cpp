#include "platform/ComPorts.h"

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <tuple>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

constexpr std::array kComNumbers{1, 2, 3, 4};

QString PortName(int number) { return QStringLiteral("COM%1").arg(number); }

// USB adapters first: a bench PC's built-in ports are seldom wired. By name within each kind, numbers by value.
void PutInOrder(QList<SystemPort>& ports) {
    const auto key = [](const SystemPort& port) {
        qsizetype digits = port.name.size();
        while (digits > 0 && port.name.at(digits - 1).isDigit()) {
            --digits;
        }
        return std::tuple(!port.usb, port.name.first(digits), port.name.sliced(digits).toInt());
    };
    std::sort(ports.begin(), ports.end(), [&key](const SystemPort& a, const SystemPort& b) { return key(a) < key(b); });
}

bool IsComName(const QString& name) {
    bool isNumber = false;
    const int number = name.mid(3).toInt(&isNumber);
    return name.startsWith(u"COM", Qt::CaseInsensitive) && isNumber && number > 0;
}

// A group helps only if it may do both.
QString NoPermission(const QFileInfo& device) {
    return device.permission(QFile::ReadGroup | QFile::WriteGroup)
               ? QStringLiteral("no permission, join the group %1 and log in again").arg(device.group())
               : QStringLiteral("no permission");
}

}  // namespace

// It is opened without touching its settings: another program may be using it.
QString TroubleWith(const QString& device) {
#ifdef Q_OS_UNIX
    const int file = ::open(QFile::encodeName(device).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (file >= 0) {
        const bool inUse = ::flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        ::close(file);
        return inUse ? QStringLiteral("in use") : QString();
    }
    switch (errno) {
        case ENOENT:
        case ENODEV:
        case ENXIO:
        case EIO:
            return QStringLiteral("missing");
        case EACCES:
            return NoPermission(QFileInfo(device));
        case EBUSY:
            return QStringLiteral("in use");
        default:
            return QString::fromLocal8Bit(std::strerror(errno));
    }
#else
    QSerialPort port;
    port.setPortName(device);
    return port.open(QIODevice::ReadWrite) ? QString() : port.errorString();
#endif
}

QList<SystemPort> SystemPorts() {
    QList<SystemPort> ports;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        QStringList product{port.description(), port.manufacturer()};
        product.removeAll(QString());
        ports.append({port.portName(), port.systemLocation(), port.hasVendorIdentifier(), product.join(u", ")});
    }
    return ports;
}

QString FindComPort(int number, const QString& folder, const std::function<QList<SystemPort>()>& listPorts) {
    const QFileInfo link(folder + QStringLiteral("/com%1").arg(number));
    if (link.isSymLink()) {
        return link.symLinkTarget();
    }
    QList<SystemPort> ports = listPorts();
    if (std::any_of(ports.cbegin(), ports.cend(), [](const SystemPort& port) { return IsComName(port.name); })) {
        return PortName(number);
    }
    PutInOrder(ports);
    return number >= 1 && number <= ports.size() ? ports.at(number - 1).device : QString();
}

bool AnyComPort(const QString& folder) {
    QList<SystemPort> ports = SystemPorts();
    const auto listed = [&ports] { return ports; };
    return std::any_of(kComNumbers.begin(), kComNumbers.end(),
                       [&](int number) { return !FindComPort(number, folder, listed).isEmpty(); });
}

QString DescribeComPort(int number, const QString& folder, bool openHere) {
    const QString device = FindComPort(number, folder);
    if (device.isEmpty()) {
        return QStringLiteral("No serial device");
    }
    if (openHere) {
        return device + QStringLiteral(": open");
    }
    const QString trouble = TroubleWith(device);
    return trouble.isEmpty() ? device : device + QStringLiteral(": ") + trouble;
}
