// SPDX-License-Identifier: MIT
// A TCP connection of the virtual machine.
#pragma once

#include <deque>

#include "platform/Socket.h"
#include "sim/Bridge.h"

namespace torvane {

class VirtualHost;

// Leads to the bridge that stands in VirtualHost::bridges under remoteHost and remotePort. Events are raised
// in VirtualHost::yield() and idle() alone: idle ends at the moment of an event. Packets that are due at the
// same wait are one arrival; a later packet is a later arrival. A peer that closes leaves the state
// peerIsClosing and raises nothing; a refusal and a reset leave the state error and raise onError.
class VirtualSocket : public Socket {
 public:
  explicit VirtualSocket(VirtualHost& host);
  ~VirtualSocket() override;
  VirtualSocket(const VirtualSocket&) = delete;
  VirtualSocket& operator=(const VirtualSocket&) = delete;

  SocketState state() const override { return state_; }
  void connect() override;
  void close() override;
  void sendData(std::string_view bytes) override;  // lost unless connected
  std::string getData() override;

  // For the host: the moment of the next event, beyond all times when there is none, and the event itself.
  double nextAt() const;
  void raiseNext();

 private:
  void queue(std::vector<sim::BridgeEvent> events);
  void raiseArrival();

  VirtualHost& host_;
  SocketState state_ = SocketState::closed;
  sim::Bridge* bridge_ = nullptr;
  std::deque<sim::BridgeEvent> underway_;  // in order of time
  std::string arrived_;                    // and not taken yet
};

}  // namespace torvane
