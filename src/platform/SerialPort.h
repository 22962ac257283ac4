// SPDX-License-Identifier: MIT
// What the program asks of a serial port. Every fault is a RuntimeError in the system's own words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

class SerialPort {
 public:
  virtual ~SerialPort() = default;

  int commPort = 0;                     // n of "COM n"; 0: none chosen, and none can be opened
  std::string settings = "9600,n,8,1";  // baud, parity letter n, o or e, data bits, stop bits

  virtual void open() = 0;
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
  virtual std::size_t inBufferCount() = 0;
  virtual std::string input() = 0;  // all that is waiting, byte for byte
  virtual void output(std::string_view bytes) = 0;
  // Returns when bytes are waiting or the time is over, without serving the windows.
  virtual void waitForInput(double seconds) = 0;
};

}  // namespace torvane
