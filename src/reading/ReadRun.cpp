// SPDX-License-Identifier: MIT
// The read run.
#include "reading/ReadRun.h"

#include "core/Global.h"
#include "core/Model.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "protocol/Channel.h"
#include "protocol/Steps.h"
#include "protocol/Waits.h"
#include "reading/Decoders.h"

namespace torvane {

namespace {

using Rows = std::span<const RegisterStep>;

bool isRead(const RegisterStep& row) { return row.onRkw77 || !onRkw77Line(); }

void note(Run& run, const RegisterStep& row, const Channel& channel, const std::string& result) {
  const bool failed = result == "Fail";
  const RegisterTrace& trace = channel.trace();
  const std::string reason = trace.reason.empty() ? "not understood" : trace.reason;
  run.outcome.registers.push_back({.reg = row.reg,
                                   .name = row.name,
                                   .verdict = failed ? Verdict::failed : Verdict::read,
                                   .reason = failed ? reason : "",
                                   .before = trace.before,
                                   .after = trace.before});
}

// A reply that makes no sense at all ends the read here.
std::string decodedRow(Run& run, Channel& channel, const RegisterStep& row) {
  const std::string reply = channel.readRegister(row.reg);
  try {
    return row.decode(reply);
  } catch (const RuntimeError&) {
    run.outcome.end = RunEnd::replyFault;
    note(run, row, channel, "Fail");
    throw;
  }
}

void readRow(Run& run, Channel& channel, const RegisterStep& row) {
  if (row.rule != StepRule::barOnly && isRead(row)) {
    run.view.upStat(false, std::string(readLabelOf(row, channel.rules().networkLabels)) + "\r");
    const std::string result = decodedRow(run, channel, row);
    // The Rkw77 line has no analog output to enable: its alarm 2 register takes the choice off the window.
    if (row.decode == parseAl2Cnfg && result != "Fail" && onRkw77Line()) {
      run.view.takeAnalogOutputAway();
    }
    note(run, row, channel, result);
    run.view.upStat(true, result);
  }
  if (row.percent != unchanged) run.view.upProg(static_cast<std::int16_t>(row.percent));
}

void readStep(Run& run, Channel& channel, Rows rows) {
  for (const RegisterStep& row : rows) {
    if (&row != rows.data() && channel.rules().restsWithinSteps) pause(0);
    readRow(run, channel, row);
  }
  const bool tellsOfWiring = rows.front().rule == StepRule::firstContact && channel.rules().heedsWiring;
  if (tellsOfWiring && channel.isMiswired()) {
    run.view.box("A communications connection/wiring problem seems to exist");
  }
}

// A step counts by its last register alone, and one that read nothing by that of the step before it.
bool givesUp(Run& run, const Channel& channel, int& failedSteps) {
  if (channel.rules().failedStepsBorne == noLimit || channel.readFailed == False) return false;
  if (++failedSteps <= channel.rules().failedStepsBorne) return false;
  run.outcome.end = RunEnd::gaveUp;
  run.view.box("TCP Communication with the device has failed.");
  return true;
}

}  // namespace

void readConfiguration(Run& run, Channel& channel) {
  if (channel.rules().heedsWiring) channel.wiringProblem = False;
  attempt([&] {
    int failedSteps = 0;
    for (const Rows& rows : stepGroups()) {
      channel.registerMask = 0;
      readStep(run, channel, rows);
      host<Clock>().yield();
      if (isCancelled()) run.outcome.end = RunEnd::cancelled;
      if (isCancelled() || givesUp(run, channel, failedSteps)) return;
    }
  });
  run.view.showTabs();
}

}  // namespace torvane
