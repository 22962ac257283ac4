// SPDX-License-Identifier: MIT
// One cell of the matrix: a whole run, which one fault meets at one step, and what came of it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/Memo.h"
#include "tests/runs/FaultList.h"
#include "tests/support/RunPlan.h"

enum class Body { serial, network };
enum class Direction { write, read };

inline constexpr int everyStep = 31;

struct RunOutcome {
  double seconds = 0;                       // of virtual time
  double limit = 0;                         // that no run over this body takes longer
  bool ended = false;                       // the last words were said, the bar is full, the window is hidden
  std::map<std::size_t, std::string> told;  // by row of the plan: "Success", "Fail", what was read
  Payloads before;
  Payloads after;
  std::vector<MemoField> recordsBefore;
  std::vector<MemoField> records;
  std::size_t writes = 0;  // commands that change a register
  Lines boxes;
};

// A run of a full controller; null: nothing is wrong.
RunOutcome runWith(const ListedFault* fault, int step, Body body, Direction direction);

// How a run has come through, as the table shows it.
//   .  nothing is lost
//   f  the step fails alone, and is told
//   F  later steps fail too, and are told; the run goes through its whole plan
//   S  the run stops with a message
//   x  something was taken for the unit's answer that wasn't
char verdictOn(const RunOutcome& outcome, const RunOutcome& sound, int step, Direction direction);

// What breaks the rules in a run, in words; empty when nothing does. The rules: it ends, in bounded time;
// every register holds its old or its new value; what is told as done is done; a read changes nothing in the
// unit; every record holds its old or its new value. What the fault itself makes so is allowed.
std::string brokenRule(const RunOutcome& outcome, const RunOutcome& sound, const ListedFault& fault,
                       Direction direction);
