// SPDX-License-Identifier: MIT
// A serial port on a device file: opened exclusively, without handshake.
#pragma once

#include <QSerialPort>
#include <functional>
#include <string>
#include <string_view>

#include "platform/SerialPort.h"

namespace torvane {

// After a fault of the line (hang-up, device gone) the port is closed, and the next call throws the system's
// words once; every later one finds the port not open.
class QtSerialPort : public SerialPort {
 public:
  // `deviceOf` gives the path of "COM n", empty for none.
  explicit QtSerialPort(std::function<std::string(int)> deviceOf);
  QtSerialPort(const QtSerialPort&) = delete;
  QtSerialPort& operator=(const QtSerialPort&) = delete;
  ~QtSerialPort() override;

  void open() override;
  void close() override;
  bool isOpen() const override;
  std::size_t inBufferCount() override;
  std::string input() override;
  void output(std::string_view bytes) override;
  void waitForInput(double seconds) override;

 private:
  void applySettings();
  bool openAfterAKill();
  void noteFault(QSerialPort::SerialPortError error);
  void throwFault();
  void mustBeOpen();
  void checkDevice();

  std::function<std::string(int)> deviceOf_;
  std::string device_;
  std::string fault_;  // words of a fault not yet reported
  bool opening_ = false;
  QSerialPort port_;
};

void closeAllQtSerialPorts();

}  // namespace torvane
