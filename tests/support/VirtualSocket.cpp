// SPDX-License-Identifier: MIT
// A TCP connection of the virtual machine.
#include "tests/support/VirtualSocket.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tests/support/VirtualHost.h"

namespace torvane {

namespace {

// How long the far machine takes to say that nobody listens at a port.
constexpr double refusalAfter = 0.001;

}  // namespace

VirtualSocket::VirtualSocket(VirtualHost& host) : host_(host) { host_.attach(*this); }

VirtualSocket::~VirtualSocket() { host_.detach(*this); }

void VirtualSocket::connect() {
  close();
  state_ = SocketState::connecting;
  const auto found = host_.bridges.find({remoteHost, remotePort});
  if (found != host_.bridges.end()) {
    bridge_ = found->second;
    queue(bridge_->connect(host_.clock));
  } else if (host_.isThere(remoteHost)) {
    queue({{host_.clock + refusalAfter, sim::BridgeEvent::refused}});
  }
}

void VirtualSocket::close() {
  state_ = SocketState::closed;
  bridge_ = nullptr;
  underway_.clear();
  arrived_.clear();
}

void VirtualSocket::sendData(std::string_view bytes) {
  if (state_ == SocketState::connected) queue(bridge_->receive(host_.clock, bytes));
}

std::string VirtualSocket::getData() { return std::exchange(arrived_, {}); }

void VirtualSocket::queue(std::vector<sim::BridgeEvent> events) {
  std::move(events.begin(), events.end(), std::back_inserter(underway_));
  std::ranges::stable_sort(underway_, {}, &sim::BridgeEvent::at);
}

double VirtualSocket::nextAt() const {
  return underway_.empty() ? std::numeric_limits<double>::infinity() : underway_.front().at;
}

void VirtualSocket::raiseNext() {
  const sim::BridgeEvent::Kind kind = underway_.front().kind;
  if (kind == sim::BridgeEvent::data) return raiseArrival();
  underway_.pop_front();
  if (kind == sim::BridgeEvent::accepted) {
    state_ = SocketState::connected;
    if (onConnect) onConnect();
    return;
  }
  underway_.clear();
  bridge_ = nullptr;
  state_ = kind == sim::BridgeEvent::closed ? SocketState::peerIsClosing : SocketState::error;
  if (state_ == SocketState::error && onError) onError();
}

void VirtualSocket::raiseArrival() {
  std::size_t size = 0;
  for (; !underway_.empty() && underway_.front().kind == sim::BridgeEvent::data && nextAt() <= host_.clock;
       underway_.pop_front()) {
    const std::string& bytes = underway_.front().bytes;
    size += bytes.size();
    arrived_.append(bytes, 0, mostKept - arrived_.size());
  }
  if (onDataArrival) onDataArrival(size);
}

}  // namespace torvane
