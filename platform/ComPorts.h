#pragma once

#include <QList>
#include <QString>
#include <functional>

// The serial devices behind the port numbers 1 to 4 ("Com1" to "Com4").
//
// On a system whose ports bear such names: those. Elsewhere what the symbolic link com1 to com4 in `folder` points to,
// if it is there, else the n-th serial device of the system, USB adapters before built-in ports, in a stable order.

// A serial device as the system lists it.
struct SystemPort {
    QString name;    // "ttyUSB0", "COM3"
    QString device;  // its name or path for opening
    bool usb = false;
    QString product = {};  // "FT232R USB UART, FTDI"; empty if it does not tell
};

// All of them, in no order. Can take a second.
QList<SystemPort> SystemPorts();

// The device to open, a name or a path; empty if there is none. Lists the ports only if there is no link.
QString FindComPort(int number, const QString& folder,
                    const std::function<QList<SystemPort>()>& listPorts = SystemPorts);

// Whether any of the four has a device.
bool AnyComPort(const QString& folder);

// What is wrong with a device, a name or a path: "missing", "in use", or no permission and which group has it; empty if
// it can be opened.
QString TroubleWith(const QString& device);

// One line for the user: which device is behind the port now, and what is wrong with it if it can't be opened.
// `openHere` says that this program holds the port, which is then left alone.
QString DescribeComPort(int number, const QString& folder, bool openHere);
