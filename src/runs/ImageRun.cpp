// SPDX-License-Identifier: MIT
// What a unit holds, read whole and put back.
#include "runs/ImageRun.h"

#include "core/Global.h"
#include "core/Model.h"
#include "knowledge/RegisterMap.h"
#include "platform/Clock.h"
#include "protocol/Channel.h"
#include "protocol/Steps.h"
#include "reading/DecodersPayload.h"

namespace torvane {

namespace {

void moveBar(Run& run, const RegisterStep& row) {
  if (row.percent != unchanged) run.view.upProg(static_cast<std::int16_t>(row.percent));
}

// False: the user has had enough, or the line is out of order.
bool goesOn(Run& run, const Channel& channel) {
  host<Clock>().yield();
  if (channel.rules().heedsWiring && channel.isMiswired()) run.outcome.end = RunEnd::wiring;
  if (isCancelled()) run.outcome.end = RunEnd::cancelled;
  return run.outcome.end == RunEnd::finished;
}

// The unit that has just been probed.
UnitImage identified(const Run& run) {
  UnitImage image;
  image.model = isModelFixed() ? Hardware.ModelNumber : run.outcome.unit;
  image.kind = meterKind();
  image.version = Global.FirmwareVersion;
  image.line = run.outcome.line;
  image.address = run.outcome.address;
  image.read = host<Clock>().utcNow();
  return image;
}

void readRegister(Run& run, Channel& channel, const RegisterStep& row, UnitImage& image) {
  run.view.upStat(false, std::string(readLabelOf(row, channel.rules().networkLabels)) + "\r");
  const std::optional<std::string> payload = payloadOf(channel.readRegister(row.reg));
  RegisterContent& content = contentOf(image, row.reg);
  if (payload) content.payload = *payload;
  if (!payload) content.reason = channel.trace().reason.empty() ? "not understood" : channel.trace().reason;
  run.outcome.registers.push_back({.reg = row.reg,
                                   .name = row.name,
                                   .verdict = payload ? Verdict::read : Verdict::failed,
                                   .reason = content.reason,
                                   .before = content.payload,
                                   .after = content.payload});
  run.view.upStat(true, payload ? *payload : "Fail");
}

void writeRegister(Run& run, Channel& channel, const RegisterStep& row, const SetupRegister& wanted) {
  run.view.upStat(
      false, std::string(writeLabelOf(row, channel.rules().networkLabels)) + "\r" + wanted.payload + "\r");
  channel.registerMask = static_cast<std::int32_t>(wanted.mask);
  const std::string result = channel.changeRegister(row.reg, wanted.payload);
  const RegisterTrace& trace = channel.trace();
  const bool took = result == "Success";
  run.outcome.registers.push_back({.reg = row.reg,
                                   .name = row.name,
                                   .verdict = !took                ? Verdict::failed
                                              : trace.sent.empty() ? Verdict::same
                                                                   : Verdict::written,
                                   .reason = trace.reason,
                                   .before = trace.before,
                                   .wanted = wanted.payload,
                                   .sent = trace.sent,
                                   .after = trace.after});
  run.view.upStat(true, result);
}

}  // namespace

UnitImage readImage(Run& run, Channel& channel) {
  UnitImage image = identified(run);
  channel.wiringProblem = False;
  for (const RegisterStep& row : registerSteps()) {
    const bool has = row.rule != StepRule::barOnly && hasRegister(row.reg, image.kind);
    if (has) readRegister(run, channel, row, image);
    moveBar(run, row);
    if (!goesOn(run, channel)) break;
  }
  return image;
}

std::string versionOf(Channel& channel) {
  constexpr std::size_t width = 3;
  const std::string reply = channel.command(framed("U03"));
  const std::size_t mark = reply.find("U03");
  if (mark == std::string::npos || contains(reply, "Time")) return "";
  return reply.substr(mark + width, width);
}

void writeEncoded(Run& run, Channel& channel, const EncodedSetup& setup) {
  channel.wiringProblem = False;
  for (const RegisterStep& row : registerSteps()) {
    if (row.rule == StepRule::barOnly) continue;
    const SetupRegister& wanted = setup.registers[static_cast<std::size_t>(registerPlace(row.reg))];
    if (wanted.sent) writeRegister(run, channel, row, wanted);
    moveBar(run, row);
    if (!goesOn(run, channel)) return;
  }
}

}  // namespace torvane
