#pragma once

#include <QString>

// The serial devices behind the port numbers 1 to 4 ("Com1" to "Com4").
//
// On a system whose ports bear such names: those. Elsewhere what the symbolic link com1 to com4 in `folder` points to,
// if it is there, else the n-th serial device of the system, USB adapters before built-in ports, in a stable order.

// The device to open, a name or a path; empty if there is none.
QString FindComPort(int number, const QString& folder);

// One line for the user: which device is behind the port now, and what is wrong with it if it can't be opened.
// `openHere` says that this program holds the port, which is then left alone.
QString DescribeComPort(int number, const QString& folder, bool openHere);
