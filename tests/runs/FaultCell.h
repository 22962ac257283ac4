// SPDX-License-Identifier: MIT
// One cell of the matrix: a whole run, which one fault meets at one step, and what came of it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/Memo.h"
#include "protocol/Steps.h"
#include "tests/runs/FaultList.h"
#include "tests/support/RunPlan.h"

namespace torvane {

enum class Body { serial, network };
enum class Direction { write, read };

inline const int everyStep = static_cast<int>(stepGroups().size());

struct CellOutcome {
  Body body = Body::serial;
  Direction direction = Direction::write;
  double seconds = 0;                       // of virtual time
  bool ended = false;                       // the last words were said, the bar is full, the window is hidden
  std::map<std::size_t, std::string> told;  // by row of the plan: "Success", "Fail", what was read
  Payloads before;                          // what the unit held
  Payloads after;
  std::vector<MemoField> recordsBefore;
  std::vector<MemoField> records;
  std::size_t writes = 0;  // commands that change a register
  Lines boxes;
};

// A run of a full controller; null: nothing is wrong.
CellOutcome runWith(const ListedFault* fault, int step, Body body, Direction direction);

// How a run has come through, beside one with which nothing was wrong, as the table shows it.
//   .  nothing is lost
//   f  the step fails alone, and the run says so
//   F  later steps fail too, and the run says so and goes through its whole plan
//   S  the run stops with a message
//   x  a register or a record holds what neither side had
char verdictOn(const CellOutcome& outcome, const CellOutcome& sound, int step);

// What breaks the rules in a run, in words; empty when nothing does. The rules: it ends, in bounded time, and
// tells when it stops early; a read changes nothing in the unit; every register and every record holds its
// old or its new value; what is reported as done is done. The last three are lifted where the fault itself
// forges.
std::string brokenRule(const CellOutcome& outcome, const CellOutcome& sound, const ListedFault& fault);

// Whether the list says that this fault may lead to what neither side had in such a run.
bool mayForge(const ListedFault& fault, const CellOutcome& outcome);

}  // namespace torvane
