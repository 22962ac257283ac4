// SPDX-License-Identifier: MIT
// How a unit or a file differs from a setup.

#include "core/Model.h"
#include "platform/Files.h"
#include "tool/CompareReport.h"
#include "tool/Connection.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> compareOptions() {
  return joined({required({"LINE_OR_FILE", "LINE", "a line, or a second setup file", &Arguments::first}),
                 required({"SETUP", "FILE", "the setup file", &Arguments::setup})},
                unitOptions());
}

ExitCode tell(Json object, const Comparison& comparison, const Output& output) {
  object["settings"] = differingSettings(comparison);
  object["registers"] = registerChanges(comparison);
  object["verdict"] = comparison.same() ? "pass" : "fail";
  output.print(object, comparisonTable(comparison));
  return comparison.same() ? ExitCode::done : ExitCode::differs;
}

ExitCode compareUnit(const Arguments& arguments, const Output& output) {
  const EncodedSetup setup = asSetup(loadEither(arguments.setup), false);
  LineArguments line = arguments.line;
  line.name = lineNamed("LINE", arguments.first);
  DeviceState.IsRkw77 = asFlag(setup.kind == kind::rkw77);
  Connection connection(line);
  connection.meetForSetup();
  const UnitImage unit = connection.readAll();
  if (brokeOff(connection.outcome())) return report(connection.outcome(), line, answer("compare"), output);
  Json object = answer("compare");
  object["line"] = lineText(line.name);
  object["unit"] = unitObject(connection.outcome());
  return tell(object, compare(unit, setup), output);
}

ExitCode compareWithSetup(const Arguments& arguments, const Output& output) {
  if (!host<Files>().fileExists(arguments.first)) return compareUnit(arguments, output);
  const UnitImage first = asUnit(loadEither(arguments.first));
  const EncodedSetup setup = asSetup(loadEither(arguments.setup), false);
  Json object = answer("compare");
  object["line"] = arguments.first;
  return tell(object, compare(first, setup), output);
}

}  // namespace

Subcommand compareCommand() {
  return {"compare", "how a unit, or a file, differs from a setup file", compareOptions, compareWithSetup};
}

}  // namespace torvane::tool
