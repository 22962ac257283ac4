// SPDX-License-Identifier: MIT
// Keeps a copy of all registers of a unit.
#include "tool/Connection.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> keepOptions() {
  return joined(lineOptions(),
                {required({"-o,--output", "FILE", "the copy to write", &Arguments::out}),
                 {"--setup", "FILE", "a setup file that tells the kind of the unit", &Arguments::setup}});
}

ExitCode keepCopy(const Arguments& arguments, const Output& output) {
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

Subcommand keepCommand() {
  return {"keep", "keeps a copy of all registers of a unit", keepOptions, keepCopy};
}

}  // namespace torvane::tool
