// SPDX-License-Identifier: MIT
// Puts a copy back into a unit.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareLine(app, arguments.line);
  declareFile(app, "COPY", arguments.unitFile, "the copy to put back")->required();
  app.add_flag("--bus", arguments.bus, "bus format and address too");
}

}  // namespace

Subcommand putBackCommand() { return {"put-back", "puts a copy back into a unit", declare, unfinished}; }

}  // namespace tool
