// SPDX-License-Identifier: MIT
// Keeps a copy of all registers of a unit.
#include "tool/Connection.h"
#include "tool/Declare.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  declareLine(app, arguments.line);
  declareFile(app, "-o,--output", arguments.out, "the copy to write")->required();
  declareFile(app, "--setup", arguments.setup, "a setup file that tells the kind of the unit");
}

ExitCode run(const Arguments& arguments, const Output& output) {
  mustHaveAFolder(arguments.out);
  beginRecords();
  if (!arguments.setup.empty()) loadSetup(arguments.setup);
  Connection connection(arguments.line);
  if (arguments.setup.empty()) {
    connection.meet();
  } else {
    connection.meetForSetup();
  }
  const UnitImage copy = connection.readAll();
  if (connection.outcome().end == RunEnd::finished) saveCopy(arguments.out, copy);
  return report(connection.outcome(), arguments.line, answer("keep"), output);
}

}  // namespace

Subcommand keepCommand() { return {"keep", "keeps a copy of all registers of a unit", declare, run}; }

}  // namespace torvane::tool
