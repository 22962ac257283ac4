// SPDX-License-Identifier: MIT
// Keeps a copy of all registers of a unit.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareLine(app, arguments.line);
  declareFile(app, "-o,--output", arguments.out, "the copy to write")->required();
  declareFile(app, "--setup", arguments.setup, "a setup file that tells the kind of the unit");
}

}  // namespace

Subcommand keepCommand() { return {"keep", "keeps a copy of all registers of a unit", declare, unfinished}; }

}  // namespace tool
