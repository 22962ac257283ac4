// SPDX-License-Identifier: MIT
// For commands whose runs are not built in yet.
#pragma once

#include "tool/Subcommands.h"

namespace tool {

[[noreturn]] inline ExitCode unfinished(const Arguments&, const Output&) {
  throw Problem(ExitCode::usage, "this command is not built in yet", "The main program does it.");
}

}  // namespace tool
