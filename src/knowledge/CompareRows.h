// SPDX-License-Identifier: MIT
// What differs, as rows for a person: grouped as the tabs are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "knowledge/Compare.h"

namespace torvane {

struct CompareRow {
  std::string section;  // the heading that it stands under
  std::string name;
  std::string inUnit;
  std::string inSetup;
  std::string change;  // what a write does about it
  std::string reason;  // why it is not to be compared, or not to be sent; then the others say nothing
};

// What a write changes; with `all` what differs only by rounding or is left alone by a write as well. Below
// them the registers that could not be read, and those for which the setup has nothing to send.
std::vector<CompareRow> rowsOf(const Comparison& comparison, const UnitImage& unit, bool all);
// Those that hold the words, whatever the case of their letters.
std::vector<CompareRow> rowsWith(std::string_view words, const std::vector<CompareRow>& rows);

// "Set Points / Set-Point 1: 100.0 -> 123.4"
std::string lineOf(const CompareRow& row);
// Where a section of the report stands in the order of the tabs.
int tabOrder(std::string_view heading);
// One cell beside the other, as a table takes them.
std::string tableRow(const std::vector<std::string>& cells);

}  // namespace torvane
