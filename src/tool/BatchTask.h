// SPDX-License-Identifier: MIT
// What a worker of a batch is given to do: the units of one line, one after the other.
#pragma once

#include <string>
#include <vector>

#include "tool/Output.h"
#include "tool/Plan.h"

namespace torvane::tool {

struct BatchTask {
  PlanRow row = {};
  std::string setup = {};  // the digest of its file as the plan was checked with it
  bool half = false;       // an earlier write of it was not brought to its end
  std::string kept = {};   // the copy made before that; empty: none yet
};

struct LineTasks {
  std::string files = {};  // what the names of all files of the batch begin with: their folder and its name
  int number = 0;          // of the line in the plan
  std::vector<BatchTask> tasks = {};
};

// On one line of text, and back.
std::string textOf(const LineTasks& line);
LineTasks lineTasksOf(const std::string& text);

}  // namespace torvane::tool
