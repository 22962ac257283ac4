// SPDX-License-Identifier: MIT
// The setup of one unit of a plan: its file, and on top of it the unit's own values.
#pragma once

#include <string>
#include <vector>

#include "tool/Output.h"
#include "tool/Plan.h"

namespace torvane::tool {

// Why no column can be called so; empty: one can.
std::string columnFault(const std::string& header);

// Into the records. Throws Problem; returns what the rules of entry made of values that could not stay as
// they were: section, name, given, value.
Json takeSetup(const PlanRow& row);

// Why the row's own values can't be taken, each with the nearest legal ones. The records hold its setup.
std::vector<std::string> valueFaults(const PlanRow& row);

}  // namespace torvane::tool
