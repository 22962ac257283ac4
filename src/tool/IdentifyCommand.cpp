// SPDX-License-Identifier: MIT
// What the unit on a line is.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) { declareLine(app, arguments.line); }

}  // namespace

Subcommand identifyCommand() { return {"identify", "what the unit on a line is", declare, unfinished}; }

}  // namespace tool
