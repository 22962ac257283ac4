// SPDX-License-Identifier: MIT
// The record of a write: each setting as it was found and as it was left, each register, and the verdict.
#pragma once

#include <string>

#include "knowledge/UnitImage.h"
#include "runs/Outcome.h"

namespace torvane::tool {

struct RecordHead {
  std::string line;
  std::string who = {};  // empty: not given
};

// What a write saw of the unit before it wrote.
UnitImage imageBefore(const RunOutcome& outcome, int kind);

// Throws Problem when the file can't be written; the unit has been written to by then.
void saveRecord(const std::string& path, const RecordHead& head, const RunOutcome& outcome,
                const UnitImage& before);

}  // namespace torvane::tool
