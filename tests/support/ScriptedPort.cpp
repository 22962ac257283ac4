// SPDX-License-Identifier: MIT
// A serial port that answers by a script.
#include "tests/support/ScriptedPort.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <memory>

namespace torvane {

PortScript inTurn(std::vector<std::string> replies) {
  return [replies = std::move(replies), next = std::size_t{0}](const std::string&) mutable {
    std::vector<Said> said;
    if (next < replies.size()) said.push_back({replies[next++]});
    return said;
  };
}

std::vector<std::string> ScriptedPort::commands() const {
  std::vector<std::string> all;
  for (const std::string& line : sent) all.push_back(line.substr(0, line.find('\r')));
  return all;
}

void ScriptedPort::receive(const std::string& bytes, double after) {
  if (!bytes.empty()) underway_.push_back({host_.clock + after, bytes});
  std::ranges::stable_sort(underway_, {}, &Arrival::at);
}

void ScriptedPort::forget() {
  sent.clear();
  calls.clear();
  underway_.clear();
  failAt = 0;
  staysGone = false;
}

void ScriptedPort::call(const char* name) const {
  calls.emplace_back(name);
  const int number = static_cast<int>(calls.size());
  if (failAt == 0 || number < failAt || (number > failAt && !staysGone)) return;
  throw RuntimeError(Fault::portFault, std::string("Broken at ") + name);
}

void ScriptedPort::mustBeOpen() const {
  if (!open_) throw RuntimeError(Fault::portNotOpen, "The port is not open");
}

void ScriptedPort::open() {
  call("open");
  if (open_) throw RuntimeError(Fault::portFault, "The port is already open");
  open_ = true;
}

void ScriptedPort::close() {
  call("close");
  open_ = false;
}

bool ScriptedPort::isOpen() const {
  call("isOpen");
  return open_;
}

std::size_t ScriptedPort::inBufferCount() {
  call("inBufferCount");
  mustBeOpen();
  std::size_t count = 0;
  for (const Arrival& arrival : underway_) count += arrival.at <= host_.clock ? arrival.bytes.size() : 0;
  return count;
}

std::string ScriptedPort::input() {
  call("input");
  mustBeOpen();
  std::string all;
  std::erase_if(underway_, [&](const Arrival& arrival) {
    if (arrival.at > host_.clock) return false;
    all += arrival.bytes;
    return true;
  });
  return all;
}

void ScriptedPort::output(std::string_view bytes) {
  call("output");
  mustBeOpen();
  sent.emplace_back(bytes);
  if (!script) return;
  for (const Said& said : script(commands().back())) receive(said.bytes, said.after);
}

void ScriptedPort::waitForInput(double seconds) {
  call("waitForInput");
  mustBeOpen();
  const double end = host_.clock + std::max(seconds, host_.yieldTime);
  const bool comes = !underway_.empty() && underway_.front().at <= end;
  host_.clock = comes ? std::max(host_.clock, underway_.front().at) : end;
}

void ScriptedHost::yield() {
  ++yields;
  VirtualHost::yield();
}

void ScriptedHost::idle(double seconds) {
  ++idles;
  VirtualHost::idle(seconds);
}

}  // namespace torvane
