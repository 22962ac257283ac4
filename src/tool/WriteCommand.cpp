// SPDX-License-Identifier: MIT
// Writes a setup file to a unit.
#include "core/Model.h"
#include "tool/CompareReport.h"
#include "tool/Connection.h"
#include "tool/Declare.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"
#include "tool/WriteRecord.h"

namespace torvane::tool {

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

ExitCode run(const Arguments& arguments, const Output& output) {
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

Subcommand writeCommand() { return {"write", "writes a setup file to a unit and verifies it", declare, run}; }

}  // namespace torvane::tool
