// SPDX-License-Identifier: MIT
// Changes settings of a setup file.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareFile(app, "SETUP", arguments.setup, "the setup file")->required();
  app.add_option("CHANGE", arguments.changes, "such as 'Setpoint 1=123.4'")
      ->required()
      ->type_name("NAME=VALUE");
  declareFile(app, "-o,--output", arguments.out, "the setup file to write")->required();
}

}  // namespace

Subcommand setCommand() {
  return {"set", "changes settings of a setup file by the rules of entry", declare, unfinished};
}

}  // namespace tool
