// SPDX-License-Identifier: MIT
// Made-up outcomes of runs.
#pragma once

#include "runs/Outcome.h"

namespace torvane {

// A run over COM 1 to address 17; each register as told, the rest of the fields left alone.
inline RunOutcome outcomeOf(bool reading, std::vector<RegisterOutcome> registers,
                            RunEnd end = RunEnd::finished) {
  RunOutcome outcome;
  outcome.reading = reading;
  outcome.end = end;
  outcome.line = "COM 1, 9600,o,7,1";
  outcome.address = 17;
  outcome.unit = "Torvane TMP";
  outcome.registers = std::move(registers);
  return outcome;
}

inline RegisterOutcome took(const char* reg, const char* name, Verdict verdict) {
  RegisterOutcome outcome;
  outcome.reg = reg;
  outcome.name = name;
  outcome.verdict = verdict;
  return outcome;
}

inline RegisterOutcome failed(const char* reg, const char* name, const char* reason) {
  RegisterOutcome outcome = took(reg, name, Verdict::failed);
  outcome.reason = reason;
  return outcome;
}

}  // namespace torvane
