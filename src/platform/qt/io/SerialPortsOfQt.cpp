// SPDX-License-Identifier: MIT
// The toolkit's serial ports.
#include <QSerialPortInfo>

#include "platform/qt/io/QtSerialPort.h"
#include "platform/qt/io/SerialPorts.h"

namespace torvane {

namespace {

// A device without a file is known by its name; its place would read "\\.\COM3".
QString pathOf(const QSerialPortInfo& info) {
  return info.systemLocation().startsWith('/') ? info.systemLocation() : info.portName();
}

}  // namespace

std::vector<SerialDevice> serialDevicesPresent() {
  std::vector<SerialDevice> devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    const QString name = info.description().isEmpty() ? info.manufacturer() : info.description();
    devices.push_back({pathOf(info), name.simplified()});
  }
  return devices;
}

std::unique_ptr<SerialPort> systemSerialPort(std::function<std::string(int)> deviceOf) {
  return std::make_unique<QtSerialPort>(std::move(deviceOf));
}

void closeAllSerialPorts() { closeAllQtSerialPorts(); }

}  // namespace torvane
