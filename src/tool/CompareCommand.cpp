// SPDX-License-Identifier: MIT
// How a unit or a file differs from a setup.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  app.add_option("LINE_OR_FILE", arguments.first, "a line, or a second setup file")
      ->required()
      ->type_name("LINE");
  declareFile(app, "SETUP", arguments.setup, "the setup file")->required();
  declareUnit(app, arguments.line);
}

}  // namespace

Subcommand compareCommand() {
  return {"compare", "how a unit, or a file, differs from a setup file", declare, unfinished};
}

}  // namespace tool
