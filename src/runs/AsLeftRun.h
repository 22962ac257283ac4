// SPDX-License-Identifier: MIT
// The proof of a write: what it said of each register, held against the unit as it was read again.
#pragma once

#include <string>

#include "knowledge/AsLeft.h"
#include "runs/Outcome.h"

namespace torvane {

// `left` was read after the run that wrote. A register that does not hold what the run left there has failed,
// and so has one that gave no answer.
AsLeft recordOf(const RunOutcome& written, const UnitImage& left);

}  // namespace torvane
