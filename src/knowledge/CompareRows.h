// SPDX-License-Identifier: MIT
// What differs, as lines for a person: grouped as the tabs are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "knowledge/Compare.h"

struct CompareRow {
  std::string text;    // "Set Points / Set-Point 1: 100.0 -> 123.4"
  bool fault = false;  // not to be compared, or not to be sent
};

// What a write changes; with `all` what differs only by rounding or is left alone by a write as well, and
// said so. Below them the registers that could not be read, and those for which the setup has nothing to
// send.
std::vector<CompareRow> rowsOf(const Comparison& comparison, const UnitImage& unit, bool all);
// Those that hold the words, whatever the case of their letters.
std::vector<CompareRow> rowsWith(std::string_view words, const std::vector<CompareRow>& rows);
