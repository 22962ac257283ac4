// SPDX-License-Identifier: MIT
// The settings of a setup file.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareFile(app, "SETUP", arguments.setup, "the setup file")->required();
  app.add_flag("--csv", arguments.csv, "as a table of commas");
  declareFile(app, "--pdf", arguments.pdf, "the report as a PDF");
}

}  // namespace

Subcommand showCommand() {
  return {"show", "the settings of a setup file in the report's words", declare, unfinished};
}

}  // namespace tool
