// SPDX-License-Identifier: MIT
// Reads a unit into a setup file.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareLine(app, arguments.line);
  declareFile(app, "-o,--output", arguments.out, "the setup file to write")->required();
  declareFile(app, "--keep", arguments.keep, "keep a copy of all registers as well");
}

}  // namespace

Subcommand readCommand() { return {"read", "reads a unit into a setup file", declare, unfinished}; }

}  // namespace tool
