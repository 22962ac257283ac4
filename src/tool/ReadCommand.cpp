// SPDX-License-Identifier: MIT
// Reads a unit into a setup file.
#include <algorithm>

#include "core/Model.h"
#include "tool/Connection.h"
#include "tool/Models.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> readOptions() {
  return joined(lineOptions(),
                {required({"-o,--output", "FILE", "the setup file to write", &Arguments::out}),
                 {"--keep", "FILE", "keep a copy of all registers as well", &Arguments::keep}});
}

// The setup is for the unit that was read.
void takeUnit(const LineArguments& line) {
  const bool rkw77 = onRkw77Line();
  BaseModel = rkw77 ? rkw77BaseModel : factoryBaseModel;
  DeviceState.DeviceClass = rkw77 ? 0 : std::max(DeviceState.DeviceClass, 1);
  const bool isPartNumber = !line.model.empty() && line.model != typeOfUnit();
  if (isPartNumber) Hardware.ModelNumber = line.model;
  if (!isPartNumber && rkw77) Hardware.ModelNumber = BaseModel;
}

bool cameToRegisters(const RunOutcome& outcome) {
  return outcome.end != RunEnd::noUnit && outcome.end != RunEnd::otherLine && !outcome.registers.empty();
}

ExitCode readUnit(const Arguments& arguments, const Output& output) {
  mustHaveAFolder(arguments.out);
  if (!arguments.keep.empty()) mustHaveAFolder(arguments.keep);
  SetupDesk desk;
  RunOutcome outcome;
  {
    Connection connection(arguments.line);
    connection.read();
    outcome = connection.outcome();
  }
  const bool isWhole = cameToRegisters(outcome) && outcome.end == RunEnd::finished;
  if (isWhole) {
    takeUnit(arguments.line);
    desk.takeRead();
    desk.save(arguments.out);
  }
  if (isWhole && !arguments.keep.empty()) {
    Connection connection(arguments.line);
    connection.meet();
    saveCopy(arguments.keep, connection.readAll());
  }
  return report(outcome, arguments.line, answer("read"), output);
}

}  // namespace

Subcommand readCommand() { return {"read", "reads a unit into a setup file", readOptions, readUnit}; }

}  // namespace torvane::tool
