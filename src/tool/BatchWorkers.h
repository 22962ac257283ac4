// SPDX-License-Identifier: MIT
// The workers of a batch: one process for each line, at most so many side by side.
#pragma once

#include <functional>
#include <vector>

#include "tool/BatchTask.h"
#include "tool/Journal.h"

namespace torvane::tool {

// Takes what the workers have told up to now onto the disk; only then do they go on.
using Keep = std::function<void(const std::vector<JournalEntry>& entries)>;

// Until all is done or Ctrl+C has been pressed; then each worker ends after the register in hand. Returns
// whether it came to its end. What `keep` throws ends all workers at once.
bool runWorkers(std::vector<LineTasks> lines, int jobs, const Keep& keep);

}  // namespace torvane::tool
