// SPDX-License-Identifier: MIT
// A TCP connection that answers by a script, and a machine that has only such ones.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/Socket.h"
#include "tests/support/ScriptedPort.h"

namespace torvane {

class ScriptedSocket : public Socket {
 public:
  explicit ScriptedSocket(VirtualHost& host) : host_(host) {}

  PortScript script;               // from a command to what comes back; each thing said is an arrival
  double connectsAfter = 0;        // seconds; below zero: never
  std::vector<std::string> sent;   // byte for byte
  std::vector<std::string> calls;  // "connect 192.0.2.254:1000", "close", "send"
  SocketState present = SocketState::closed;

  std::vector<std::string> commands() const;  // what was sent, less the carriage return
  void receive(const std::string& bytes, double after = 0);

  SocketState state() const override { return present; }
  void connect() override;
  void close() override;
  void sendData(std::string_view bytes) override;
  std::string getData() override;

  // For the host.
  double nextAt() const;
  void raiseDue();

 private:
  struct Event {
    double at;
    bool connects;
    std::string bytes;
  };
  void add(Event event);

  VirtualHost& host_;
  std::deque<Event> underway_;
  std::string arrived_;
};

// Waits end at the moment of an event; events of the socket are raised in waits alone.
class SocketHost : public VirtualHost {
 public:
  SocketHost() { yieldTime = 0; }

  ScriptedSocket socket{*this};
  int yields = 0;
  int idles = 0;

  void yield() override;
  void idle(double seconds) override;
};

}  // namespace torvane
