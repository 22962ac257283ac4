// SPDX-License-Identifier: MIT
// What a batch does with one unit: identify, keep a copy, write, verify, record.
#pragma once

#include <functional>
#include <string>

#include "tool/BatchTask.h"
#include "tool/Journal.h"

namespace torvane::tool {

// Returns when the journal has the event, but for a register, which is not waited for.
using Tell = std::function<void(Event event, const Json& more)>;

// Tells each step, and at last how it ended. `files` as in LineTasks.
void programUnit(const BatchTask& task, const std::string& files, const Tell& tell);

// "a.unit", or the first of "a-2.unit", "a-3.unit" ... that is not there yet: nothing is ever overwritten.
std::string freeName(const std::string& stem, const std::string& suffix);

}  // namespace torvane::tool
