// SPDX-License-Identifier: MIT
// A serial port of Windows, for builds without the toolkit's own: opened exclusively, without handshake.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/SerialPort.h"
#include "platform/windows/SerialCalls.h"

namespace torvane {

// After a fault of the line (adapter pulled out) the port is closed. The call that found it throws the
// system's words; every later one finds the port not open. No call lasts longer than its time and a moment.
class WindowsSerialPort : public SerialPort {
 public:
  struct Surroundings {
    std::function<std::string(int)> deviceOf;  // the name of "COM n", such as "COM12"; empty for none
    std::function<void()> beforeWait = [] {};  // paints what is due
  };

  WindowsSerialPort(std::unique_ptr<SerialCalls> calls, Surroundings surroundings);
  WindowsSerialPort(const WindowsSerialPort&) = delete;
  WindowsSerialPort& operator=(const WindowsSerialPort&) = delete;
  ~WindowsSerialPort() override;

  void open() override;
  void close() override;
  bool isOpen() const override { return open_; }
  std::size_t inBufferCount() override;
  std::string input() override;
  void output(std::string_view bytes) override;
  void waitForInput(double seconds) override;

 private:
  void mustBeOpen() const;
  void take(std::uint32_t milliseconds);
  void endIfFaulty(const Transfer& transfer);
  [[noreturn]] void fail(SystemError error);

  std::unique_ptr<SerialCalls> calls_;
  Surroundings surroundings_;
  std::string waiting_;  // taken from the system and not yet by the program
  bool open_ = false;
};

// What opens the device: COM10 and above are known by this long form alone.
std::string portPath(const std::string& device);
// "9600,o,7,1": baud, parity letter, data bits, stop bits.
LineState lineStateOf(const std::string& settings);

void closeAllWindowsSerialPorts();

}  // namespace torvane
