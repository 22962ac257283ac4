// SPDX-License-Identifier: MIT
// What differs between a unit and a setup, two setups or two copies: setting by setting in words, and
// register by register as a write would leave it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "knowledge/EncodedSetup.h"
#include "knowledge/UnitImage.h"

namespace torvane {

enum class Change {
  written,   // a write changes it
  rounding,  // a write changes digits, but not the meaning: the rounding of a line's points, or other digits
  kept,      // a write leaves it alone: outside the masks, or a bus setting that nobody asked for
};

struct DifferingSetting {
  const RegisterField* field = nullptr;  // lives as long as the program
  std::string reg;
  std::string section;
  std::string name;
  std::string inUnit;  // empty: not a setting of the unit as it is set now
  std::string inSetup;
  Change change = Change::written;
};

struct RegisterChange {
  std::string reg;
  std::string before;    // empty: could not be read
  std::string after;     // what a write leaves there; empty: not known
  bool written = false;  // whether a W goes out for it
  std::string reason;    // why the setup has nothing to send
};

struct Comparison {
  std::vector<DifferingSetting> settings;  // in the order of a write
  std::vector<RegisterChange> registers;   // those that either side knows
  std::size_t agree = 0;                   // settings
  std::size_t unread = 0;                  // registers that the unit has and that could not be read

  std::size_t count(Change change) const;
  bool same() const { return count(Change::written) == 0 && unread == 0; }
};

// Either side may be a unit, a copy or a setup: see setupOf and imageOf.
Comparison compare(const UnitImage& unit, const EncodedSetup& setup);
// "7 settings differ, 96 agree, 1 register could not be read"
std::string summaryOf(const Comparison& comparison);

}  // namespace torvane
