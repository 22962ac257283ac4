// SPDX-License-Identifier: MIT
// A serial port of the virtual machine.
#include "tests/support/VirtualPort.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "sim/LineSettings.h"
#include "tests/support/VirtualHost.h"

namespace torvane {

void VirtualPort::open() {
  if (commPort == 0) throw RuntimeError(Fault::portFault, "No port is chosen");
  if (open_) throw RuntimeError(Fault::portFault, "Port already open");
  Line& wire = host_.lines[commPort];
  if (!wire.openFault.empty()) throw RuntimeError(Fault::portFault, wire.openFault);
  if (wire.unit == nullptr || wire.unit->unplugged()) {
    throw RuntimeError(Fault::portFault, "No such file or directory");
  }
  open_ = true;
  ++host_.portOpenings;
  for (auto& chunk : wire.unit->unasked(host_.clock)) wire.underway.push_back(chunk);
}

Line& VirtualPort::line() {
  if (!open_) throw RuntimeError(Fault::portNotOpen, "Device not open");
  Line& wire = host_.lines[commPort];
  if (wire.unit == nullptr || wire.unit->unplugged()) {
    open_ = false;
    throw RuntimeError(Fault::portFault, "Input/output error");
  }
  return wire;
}

std::size_t VirtualPort::inBufferCount() {
  std::size_t count = 0;
  for (const auto& chunk : line().underway) count += chunk.at <= host_.clock ? chunk.bytes.size() : 0;
  return count;
}

std::string VirtualPort::input() {
  std::string all;
  std::erase_if(line().underway, [&](const sim::Chunk& chunk) {
    if (chunk.at > host_.clock) return false;
    all += chunk.bytes;
    return true;
  });
  return all;
}

void VirtualPort::output(std::string_view bytes) {
  Line& wire = line();
  const auto spoken = sim::parseLineSettings(settings).value_or(sim::LineSettings{});
  for (auto& chunk : wire.unit->receive(host_.clock, bytes, spoken)) wire.underway.push_back(chunk);
  std::ranges::stable_sort(wire.underway, {}, &sim::Chunk::at);
}

void VirtualPort::waitForInput(double seconds) {
  const Line& wire = line();
  const double end = host_.clock + std::max(seconds, host_.yieldTime);
  const bool comes = !wire.underway.empty() && wire.underway.front().at <= end;
  host_.clock = comes ? std::max(host_.clock, wire.underway.front().at) : end;
}

}  // namespace torvane
