// SPDX-License-Identifier: MIT
// Why a command can't go on: in words, with what the user can do, and the exit code.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "tool/ExitCodes.h"

namespace torvane::tool {

struct Problem : std::runtime_error {
  Problem(ExitCode exitCode, const std::string& what, std::string whatToDo = {})
      : std::runtime_error(what), code(exitCode), hint(std::move(whatToDo)) {}

  ExitCode code;
  std::string hint;  // empty where there is nothing to add
};

// A unit answers, and it is not the one that was meant. Nothing has been written to it.
struct WrongUnit : Problem {
  explicit WrongUnit(const std::string& what, std::string whatToDo = {})
      : Problem(ExitCode::noUnit, what, std::move(whatToDo)) {}
};

}  // namespace torvane::tool
