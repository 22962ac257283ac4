// SPDX-License-Identifier: MIT
// The index.
#include "core/IndexWords.h"

namespace torvane {

namespace {

constexpr IndexEntry entries[] = {
    {"id code", "password lock security protection"},
    {"set point", "target sp"},
    {"setpoint", "set point target sp"},
    {"thermocouple", "tc probe sensor"},
    {"rtd", "pt100 platinum probe sensor"},
    {"process", "signal ma milliamps volts transmitter"},
    {"decimal point", "digits resolution format"},
    {"temperature unit", "celsius fahrenheit degrees"},
    {"filter", "average smoothing noise"},
    {"scale and offset", "slope zero span calibration"},
    {"alarm", "limit warning relay"},
    {"latch", "acknowledge hold"},
    {"closure", "contact relay"},
    {"dead band", "hysteresis differential"},
    {"loop break", "lbt heater burnout"},
    {"reading adjust", "calibration correction trim"},
    {"output", "heating cooling"},
    {"proportional band", "pid gain tuning"},
    {"reset", "integral"},
    {"rate", "derivative"},
    {"cycle time", "period pwm"},
    {"auto-tune", "autotune self-tune"},
    {"ramp", "profile slope program"},
    {"soak", "profile dwell program"},
    {"analog output", "retransmission recorder"},
    {"color", "colour display"},
    {"baud", "speed line rate"},
    {"com port", "serial usb"},
    {"tcp/ip", "network ethernet"},
};

}  // namespace

std::span<const IndexEntry> indexEntries() { return entries; }

std::string otherWords(std::string_view text) {
  const std::string lower = lowerCase(text);
  std::string words;
  for (const IndexEntry& entry : entries) {
    if (lower.find(entry.term) != lower.npos) words.append(entry.words).append(" ");
  }
  return words;
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& sign : result) {
    if (sign >= 'A' && sign <= 'Z') sign = static_cast<char>(sign - 'A' + 'a');
  }
  return result;
}

}  // namespace torvane
