// SPDX-License-Identifier: MIT
// The serial ports of this build: the toolkit's, or Windows' own where the toolkit has none.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/SerialPort.h"

namespace torvane {

// A serial device of the system: what opens it, and what its adapter calls itself (or its maker; may be
// empty).
struct SerialDevice {
  QString path;
  QString adapter;
};

// All that are present, in the system's order.
std::vector<SerialDevice> serialDevicesPresent();

// `deviceOf` gives the path of "COM n", empty for none.
std::unique_ptr<SerialPort> systemSerialPort(std::function<std::string(int)> deviceOf);

// For the end of the program in the middle of something.
void closeAllSerialPorts();

}  // namespace torvane
