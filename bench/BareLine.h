// SPDX-License-Identifier: MIT
// A serial line by system calls alone: the yardstick for the program's own channel.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

class BareLine {
 public:
  // Claims the device and sets it to 9600 baud, 7 bits, odd parity. Throws std::system_error.
  explicit BareLine(const std::string& device);
  ~BareLine();
  BareLine(const BareLine&) = delete;
  BareLine& operator=(const BareLine&) = delete;

  // Sends the bytes and returns what comes up to a carriage return, or without one after two seconds.
  std::string exchange(std::string_view bytes) const;

 private:
  int file_;
};

}  // namespace torvane
