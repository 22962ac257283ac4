// SPDX-License-Identifier: MIT
// Writes a setup file to a unit.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareLine(app, arguments.line);
  declareFile(app, "SETUP", arguments.setup, "the setup file")->required();
  app.add_flag("--dry-run", arguments.dryRun, "tell what would change, write nothing");
  app.add_flag("--reset", arguments.reset, "reset the unit when all is written");
  app.add_flag("--force", arguments.force, "write even to a unit of the other line than the setup's");
  CLI::Option* const record =
      declareFile(app, "--record", arguments.record, "a record of the write, a new file");
  app.add_option("--who", arguments.who, "who writes, for the record")->type_name("NAME")->needs(record);
}

}  // namespace

Subcommand writeCommand() {
  return {"write", "writes a setup file to a unit and verifies it", declare, unfinished};
}

}  // namespace tool
