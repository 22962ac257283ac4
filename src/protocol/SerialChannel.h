// SPDX-License-Identifier: MIT
// The channel on a serial line.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "platform/SerialPort.h"
#include "protocol/Channel.h"

namespace torvane {

// What writePort returns when no whole reply came in time.
inline constexpr std::string_view timeoutMarker = "Timeout\r";

class SerialChannel : public Channel {
 public:
  explicit SerialChannel(SerialPort& port);

  SerialPort& port() { return port_; }
  // For what is said outside a register's own opening.
  // Whether the port could be opened since this was made: a unit that was never asked can't be silent.
  bool everOpened() const { return everOpened_; }
  void openIfClosed();
  void closeIfOpen();

  // Sends the command and a carriage return, and returns the reply without its line end, or the timeout
  // marker after half a second to one and a half. Nothing older than the command answers it: a line that
  // echoes a command which was given up on is passed over. Throws where the port fails.
  std::string writePort(std::string_view command);
  // Reads a register on a freshly opened port: three tries.
  std::string ReadSet(std::string_view reg) { return readRegister(reg); }
  // Changes a register on a freshly opened port: two tries to read it, five to write it.
  std::string writeSet(std::string_view reg, const std::string& value) { return changeRegister(reg, value); }

  std::string command(std::string_view line) override { return writePort(line); }

 private:
  void beginRegister() override;
  void endRegister() override;
  void query(std::string_view framedCommand, std::string& reply) override;
  void betweenCommands() override;
  void dropStaleLines(std::string& reply, std::string_view echo) const;
  std::string collectReply(std::string_view echo);

  bool everOpened_ = false;
  SerialPort& port_;
  std::set<std::string, std::less<>> givenUp_;  // echoes of commands whose replies may still come
};

}  // namespace torvane
