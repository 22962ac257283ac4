// SPDX-License-Identifier: MIT
// A TCP connection by system calls alone: the yardstick for the program's own channel through a bridge.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

class BareSocket {
 public:
  // Connects to a port of 127.0.0.1 with the low-delay option on. Throws std::system_error.
  explicit BareSocket(int port);
  ~BareSocket();
  BareSocket(const BareSocket&) = delete;
  BareSocket& operator=(const BareSocket&) = delete;

  // Sends the bytes and returns what comes up to a carriage return, or without one after two seconds.
  std::string exchange(std::string_view bytes) const;

 private:
  int file_;
};

}  // namespace torvane
