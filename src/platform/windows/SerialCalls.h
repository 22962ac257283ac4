// SPDX-License-Identifier: MIT
// The few calls of Windows that a serial port needs. A test can stand in for the system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

// What a call came to: 0 when it went well, else the system's own number of the fault.
using SystemError = std::uint32_t;

struct LineState {
  enum class Parity { none, odd, even };

  std::uint32_t baud = 9600;
  Parity parity = Parity::none;
  int dataBits = 8;
  int stopBits = 1;
};

// How far a transfer came. One that has an error may have moved bytes all the same.
struct Transfer {
  SystemError error = 0;
  std::size_t bytes = 0;
  // The driver has let neither the transfer nor its cancelling come to an end. The port is not to be used
  // any more; what the driver may still write into is kept for it.
  bool hangs = false;
};

class SerialCalls {
 public:
  virtual ~SerialCalls() = default;

  virtual SystemError open(const std::string& path) = 0;  // for this program alone
  virtual void close() = 0;
  // Without handshake; parity faults are not looked for.
  virtual SystemError configure(const LineState& line) = 0;
  // What has come in is waiting in `bytes`, as soon as it is at least one byte or the time is over. No time
  // at all takes what is there already.
  virtual Transfer read(std::string& bytes, std::uint32_t milliseconds) = 0;
  // Ends when all is out or the time is over.
  virtual Transfer write(std::string_view bytes, std::uint32_t milliseconds) = 0;
  virtual void dropUnsent() = 0;
  // Whether the adapter is still there, which some drivers tell when asked and not when read.
  virtual SystemError check() = 0;
  virtual std::string words(SystemError error) const = 0;
};

}  // namespace torvane
