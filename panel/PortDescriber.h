#pragma once

#include <QString>
#include <functional>

// Says which device is behind a port number 1 to 4, and what is wrong with it. `openHere` means that this program
// itself has it open.
using PortDescriber = std::function<QString(int number, bool openHere)>;
