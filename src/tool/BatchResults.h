// SPDX-License-Identifier: MIT
// What a batch came to: a table for people, a table of commas, an object, and the exit code.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tool/BatchPlan.h"
#include "tool/ExitCodes.h"
#include "tool/Journal.h"

namespace torvane::tool {

struct RowResult {
  const PlanRow* row;
  RowProgress progress;
  Json repaired;  // of its own values
};

std::vector<RowResult> resultsOf(const BatchPlan& plan, const std::map<int, RowProgress>& progress);

std::string resultsTable(const std::vector<RowResult>& results);  // and a sentence that counts
std::string resultsCsv(const std::vector<RowResult>& results);
Json resultsJson(const std::vector<RowResult>& results);
ExitCode exitCodeOf(const std::vector<RowResult>& results);

}  // namespace torvane::tool
