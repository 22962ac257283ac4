// SPDX-License-Identifier: MIT
// What is kept of the last run until the next one: its outcome, its verdict in words, and its history.
#pragma once

#include <string>
#include <vector>

#include "runs/Outcome.h"

namespace torvane {

struct HistoryLine {
  std::string text;
  bool failed = false;
};

struct RunRecord {
  RunOutcome outcome = {};
  std::string verdict = {};
  std::vector<HistoryLine> history = {};
};

// The verdict, an empty line, and the history, each on a line of its own: to be copied or saved.
std::string textOf(const RunRecord& record);

}  // namespace torvane
