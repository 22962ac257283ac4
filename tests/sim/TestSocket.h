// SPDX-License-Identifier: MIT
// A program's end of a TCP connection, by plain means, for tests.
#pragma once

#include <string>

namespace torvane {

class TestSocket {
 public:
  // By a host in figures, such as 127.0.0.1 or ::1; waits at most so many milliseconds for the connection.
  explicit TestSocket(int port, const std::string& host = "127.0.0.1", int patience = 10'000);
  ~TestSocket();
  TestSocket(const TestSocket&) = delete;
  TestSocket& operator=(const TestSocket&) = delete;

  bool isConnected() const { return fault_ == 0; }
  int fault() const { return fault_; }  // ECONNREFUSED, ETIMEDOUT when patience was not enough ...

  void send(const std::string& bytes) const;
  // Up to and including the byte, or what has come within a minute or before the end.
  std::string readTo(char last);
  std::string ask(const std::string& command);  // adds the carriage return
  // The next portion that the system has for us; empty at the end.
  std::string readPortion();
  bool hasBytes() const;  // now
  bool isEnded();         // orderly, within a minute, with nothing said before
  bool isReset();

 private:
  bool waitFor(short events, int patience) const;

  int file_ = -1;
  int fault_ = 0;
};

}  // namespace torvane
