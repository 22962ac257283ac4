// SPDX-License-Identifier: MIT
// The traffic as a person reads it.
#include "sim/TrafficText.h"

#include "sim/Numbers.h"

namespace sim {

namespace {

constexpr std::size_t longest = 200;

std::string visibleByte(char byte) {
  if (byte == '\r') return "<CR>";
  if (byte == '\n') return "<LF>";
  if (byte >= ' ' && byte <= '~') return std::string(1, byte);
  return '<' + hexText(static_cast<unsigned char>(byte), 2) + '>';
}

}  // namespace

std::string visibleText(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes.substr(0, longest)) text += visibleByte(byte);
  if (bytes.size() > longest) text += "... (" + std::to_string(bytes.size()) + " bytes)";
  return text;
}

std::string trafficLine(const LogEntry& entry) {
  return secondsText(entry.time) + ' ' + entry.direction + ' ' + visibleText(entry.text);
}

}  // namespace sim
