// SPDX-License-Identifier: MIT
// What a run has to say to a unit and to the user, from a plan of the tests' own: it shares nothing with the
// program's table of steps.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "protocol/frmSerial.h"
#include "sim/Unit.h"

namespace torvane {

struct PlanRow {
  int step;
  const char* reg;
  int percent;  // 0: the bar stays
  const char* writeLabel;
  const char* readLabel;
  bool readOnRkw77;
  std::array<std::uint32_t, 5> masks;  // by meterKind
};

std::span<const PlanRow> runPlan();

// By register: payloads, or what a unit holds.
using Payloads = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

Payloads registersOf(const sim::Unit& unit);
// What the unit holds when the payloads have been written to it under the masks of this kind of unit.
Payloads expectedRegisters(int kind, const Payloads& payloads, Payloads before);

// Commands as the unit hears them; `address` is the two digits on an addressed line, else empty.
Lines probeTraffic(bool rkw77, const std::string& address = "");
Lines writeTraffic(int kind, const Payloads& payloads, Payloads before, const std::string& address = "");
Lines readTraffic(bool rkw77, const std::string& address = "");

// What the status window shows, one line for each change: the status text, or the bar as "6%". Both begin
// after the probe and end before "Done".
Lines writeNarrative(const Payloads& payloads);
Lines readNarrative(bool rkw77, const Payloads& outcomes);

// Notes down every change of the status window's text and bar from now on.
class Narrative {
 public:
  void listen(frmSerial& window);
  bool has(const std::string& line) const;
  // The lines after the first one that reads so.
  Lines after(const std::string& line) const;

  Lines lines;
};

Lines operator+(Lines first, const Lines& second);

}  // namespace torvane
