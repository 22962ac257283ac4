// SPDX-License-Identifier: MIT
// Windows' own serial ports.
#include "platform/qt/io/PaintDue.h"
#include "platform/qt/io/SerialPorts.h"
#include "platform/windows/Win32Ports.h"
#include "platform/windows/Win32SerialCalls.h"
#include "platform/windows/WindowsSerialPort.h"

namespace torvane {

std::vector<SerialDevice> serialDevicesPresent() {
  std::vector<SerialDevice> devices;
  for (const Win32Port& port : win32Ports()) {
    devices.push_back({QString::fromStdString(port.name), QString::fromStdString(port.adapter).simplified()});
  }
  return devices;
}

std::unique_ptr<SerialPort> systemSerialPort(std::function<std::string(int)> deviceOf) {
  WindowsSerialPort::Surroundings surroundings{std::move(deviceOf), paintWhatIsDue};
  return std::make_unique<WindowsSerialPort>(win32SerialCalls(), std::move(surroundings));
}

void closeAllSerialPorts() { closeAllWindowsSerialPorts(); }

}  // namespace torvane
