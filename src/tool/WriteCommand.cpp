// SPDX-License-Identifier: MIT
// Writes a setup file to a unit.
#include "core/Model.h"
#include "tool/CompareReport.h"
#include "tool/Connection.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"
#include "tool/WriteRecord.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> writeOptions() {
  return joined(
      lineOptions(),
      {required({"SETUP", "FILE", "the setup file", &Arguments::setup}),
       {"--dry-run", "", "tell what would change, write nothing", &Arguments::dryRun},
       {"--reset", "", "reset the unit when all is written", &Arguments::reset},
       {"--force", "", "write even to a unit of the other line than the setup's", &Arguments::force},
       {"--record", "FILE", "a record of the write, a new file", &Arguments::record},
       needing("--record", {"--who", "NAME", "who writes, for the record", &Arguments::who})});
}

ExitCode dryRun(const Arguments& arguments, const Output& output) {
  const EncodedSetup setup = encodeSetup();
  Connection connection(arguments.line);
  connection.meetForSetup();
  const UnitImage unit = connection.readAll();
  Json object = answer("write");
  object["dryRun"] = true;
  if (brokeOff(connection.outcome())) return report(connection.outcome(), arguments.line, object, output);
  const Comparison comparison = compare(unit, setup);
  object["line"] = lineText(arguments.line.name);
  object["unit"] = unitObject(connection.outcome());
  object["settings"] = differingSettings(comparison);
  object["registers"] = registerChanges(comparison);
  object["verdict"] = comparison.unread == 0 ? "pass" : "fail";
  output.print(object, comparisonTable(comparison) + "Nothing was written.\n");
  return comparison.unread == 0 ? ExitCode::done : ExitCode::differs;
}

ExitCode writeUnit(const Arguments& arguments, const Output& output) {
  if (!arguments.record.empty()) mustBeNew(arguments.record);
  loadSetup(arguments.setup);
  if (arguments.dryRun) return dryRun(arguments, output);
  const int kind = meterKind();
  Connection connection(arguments.line);
  connection.write(arguments.reset, arguments.force);
  if (!arguments.record.empty()) {
    saveRecord(arguments.record, {.line = lineText(arguments.line.name), .who = arguments.who},
               connection.outcome(), imageBefore(connection.outcome(), kind));
  }
  return report(connection.outcome(), arguments.line, answer("write"), output);
}

}  // namespace

Subcommand writeCommand() {
  return {"write", "writes a setup file to a unit and verifies it", writeOptions, writeUnit};
}

}  // namespace torvane::tool
