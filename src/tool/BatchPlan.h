// SPDX-License-Identifier: MIT
// The plan of a batch as a file, held against its setups.
#pragma once

#include <map>
#include <string>

#include "tool/Output.h"
#include "tool/Plan.h"

namespace torvane::tool {

struct BatchPlan {
  Plan plan = {};           // with devices from the root
  std::string digest = {};  // of the plan and of every setup in it: whether they are still the same
  std::map<std::string, std::string> setups = {};  // the digest of each, by its path
  std::map<int, Json> repaired = {};               // by row: own values that the rules of entry have changed
};

// Throws RuntimeError when the file can't be read.
std::string digestOf(const std::string& path);

// Throws Problem when the file can't be read. Errors in it stand in plan.problems, in order.
BatchPlan loadPlan(const std::string& path);

}  // namespace torvane::tool
