// SPDX-License-Identifier: MIT
// A TCP connection that answers by a script.
#include "tests/support/ScriptedSocket.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace torvane {

std::vector<std::string> ScriptedSocket::commands() const {
  std::vector<std::string> all;
  for (const std::string& line : sent) all.push_back(line.substr(0, line.find('\r')));
  return all;
}

void ScriptedSocket::add(Event event) {
  underway_.push_back(std::move(event));
  std::ranges::stable_sort(underway_, {}, &Event::at);
}

void ScriptedSocket::receive(const std::string& bytes, double after) {
  add({host_.clock + after, false, bytes});
}

void ScriptedSocket::connect() {
  calls.push_back("connect " + remoteHost + ":" + std::to_string(remotePort));
  present = SocketState::connecting;
  if (connectsAfter >= 0) add({host_.clock + connectsAfter, true, ""});
}

void ScriptedSocket::close() {
  calls.emplace_back("close");
  present = SocketState::closed;
  underway_.clear();
  arrived_.clear();
}

void ScriptedSocket::sendData(std::string_view bytes) {
  calls.emplace_back("send");
  sent.emplace_back(bytes);
  if (!script || present != SocketState::connected) return;
  for (const Said& said : script(commands().back())) {
    if (!said.bytes.empty()) receive(said.bytes, said.after);
  }
}

std::string ScriptedSocket::getData() { return std::exchange(arrived_, {}); }

double ScriptedSocket::nextAt() const {
  return underway_.empty() ? std::numeric_limits<double>::infinity() : underway_.front().at;
}

void ScriptedSocket::raiseDue() {
  while (nextAt() <= host_.clock) {
    const Event event = underway_.front();
    underway_.pop_front();
    if (event.connects) {
      present = SocketState::connected;
      if (onConnect) onConnect();
    } else {
      arrived_ += event.bytes;
      if (onDataArrival) onDataArrival(event.bytes.size());
    }
  }
}

void SocketHost::yield() {
  ++yields;
  VirtualHost::yield();
  socket.raiseDue();
}

void SocketHost::idle(double seconds) {
  ++idles;
  VirtualHost::idle(std::clamp(socket.nextAt() - clock, 0.0, seconds));
  socket.raiseDue();
}

}  // namespace torvane
