// SPDX-License-Identifier: MIT
// Puts a copy back into a unit.
#include "core/Model.h"
#include "tool/Connection.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> putBackOptions() {
  return joined(lineOptions(), {required({"COPY", "FILE", "the copy to put back", &Arguments::unitFile}),
                                {"--bus", "", "bus format and address too", &Arguments::bus}});
}

// No bit that either side has not got.
void narrow(EncodedSetup& setup, int unitKind) {
  for (std::size_t place = 0; place < registerCount; ++place) {
    SetupRegister& reg = setup.registers[place];
    reg.mask &= maskOf(registerRows()[place].reg, unitKind);
    reg.sent = reg.sent && reg.mask != 0;
  }
}

ExitCode putCopyBack(const Arguments& arguments, const Output& output) {
  const UnitImage copy = loadCopy(arguments.unitFile);
  beginRecords();
  DeviceState.IsRkw77 = asFlag(copy.kind == kind::rkw77);
  Connection connection(arguments.line);
  connection.meetForSetup();
  EncodedSetup setup = setupOf(copy, arguments.bus);
  narrow(setup, meterKind());
  connection.putBack(setup);
  return report(connection.outcome(), arguments.line, answer("put-back"), output);
}

}  // namespace

Subcommand putBackCommand() {
  return {"put-back", "puts a copy back into a unit", putBackOptions, putCopyBack};
}

}  // namespace torvane::tool
