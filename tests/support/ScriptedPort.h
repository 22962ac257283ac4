// SPDX-License-Identifier: MIT
// A serial port that answers by a script and can fail at any single call, and a machine that has only such
// ports.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/SerialPort.h"
#include "tests/support/VirtualHost.h"

namespace torvane {

struct Said {
  std::string bytes;
  double after = 0.01;  // seconds after the command
};

// From a command without its carriage return to what comes back, in order of time.
using PortScript = std::function<std::vector<Said>(const std::string& command)>;

// One reply per command, whatever the command, then silence. An empty reply is silence too.
PortScript inTurn(std::vector<std::string> replies);

class ScriptedPort : public SerialPort {
 public:
  explicit ScriptedPort(VirtualHost& host) : host_(host) {}

  PortScript script;
  std::vector<std::string> sent;           // byte for byte
  mutable std::vector<std::string> calls;  // every call by its name, failing ones included
  int failAt = 0;                          // number of the call that fails, counted from 1; 0: none
  bool staysGone = false;                  // and all calls after it

  std::vector<std::string> commands() const;  // what was sent, less the carriage return
  // What is heard of a unit that nobody has asked.
  void receive(const std::string& bytes, double after = 0);

  // What was sent and called, and what is still underway, is as if it had never been; a fault is lifted.
  void forget();

  void open() override;
  void close() override;
  bool isOpen() const override;
  std::size_t inBufferCount() override;
  std::string input() override;
  void output(std::string_view bytes) override;
  void waitForInput(double seconds) override;

 private:
  struct Arrival {
    double at;
    std::string bytes;
  };
  void call(const char* name) const;
  void mustBeOpen() const;

  VirtualHost& host_;
  bool open_ = false;
  std::vector<Arrival> underway_;
};

class ScriptedHost : public VirtualHost {
 public:
  int yields = 0;
  int idles = 0;

  void yield() override;
  void idle(double seconds) override;
  std::unique_ptr<SerialPort> makeSerialPort() override { return std::make_unique<ScriptedPort>(*this); }
};

}  // namespace torvane
