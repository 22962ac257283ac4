// SPDX-License-Identifier: MIT
// What a run came to, as JSON and as words.
#pragma once

#include <string>

#include "runs/Outcome.h"
#include "tool/Arguments.h"
#include "tool/ExitCodes.h"
#include "tool/Output.h"

namespace torvane::tool {

// "same", "written", "read", "failed" or "skipped".
const char* verdictWord(Verdict verdict);
// 0 done, 1 something failed, 3 no unit, 4 port or bridge, 130 cancelled.
ExitCode exitCodeOf(const RunOutcome& outcome);

// Not all registers had their turn, so nothing can be said of the whole.
bool brokeOff(const RunOutcome& outcome);

// The unit that was met or written to: type, kind, model, version, address; what is not known is left out.
Json unitObject(const RunOutcome& outcome);
Json registersOf(const RunOutcome& outcome);
std::string registersTable(const RunOutcome& outcome);
// The line, unit, registers and verdict of a run after what the object holds already; prints all.
ExitCode report(const RunOutcome& outcome, const LineArguments& line, Json object, const Output& output);

}  // namespace torvane::tool
