// SPDX-License-Identifier: MIT
// The runs with a unit, and whether the line lasted until their end.
#include "core/Global.h"
#include "core/Model.h"
#include "network/NetworkAccess.h"
#include "network/NetworkRuns.h"
#include "platform/RuntimeError.h"
#include "platform/qt/io/Terminal.h"
#include "protocol/Probe.h"
#include "protocol/WriteRun.h"
#include "reading/ReadRun.h"
#include "runs/ImageRun.h"
#include "tool/Connection.h"
#include "tool/LineProblems.h"
#include "tool/Models.h"

namespace torvane::tool {

namespace {

constexpr std::int16_t resetOnly = 1;

constexpr const char* otherLineHint = "Nothing was written. Use the setup of this unit's line, or --force.";

}  // namespace

UnitImage Connection::readAll() {
  UnitImage image = readImage(run_, channel());
  image.line = run_.outcome.line;
  noteLostLine(true);
  return image;
}

void Connection::putBack(const EncodedSetup& setup) {
  run_.reading = false;
  run_.outcome.registers.clear();
  const bool cameToItsEnd = attempt([&] { writeEncoded(run_, channel(), setup); });
  noteLostLine(cameToItsEnd);
}

// What the window does on the serial line, with a refusal in front of the first byte of a write.
void Connection::write(bool reset, bool force) {
  const std::int16_t isRkw77 = DeviceState.IsRkw77;
  const bool checksType = line_.name.overBridge() && !line_.model.empty();
  if (checksType) {
    meet();
    socket_->close();
    DeviceState.IsRkw77 = isRkw77;
  }
  begin(false);
  if (!line_.name.overBridge()) return writeOnSerial(reset, force, isRkw77);
  overBridge();
  if (reset && run_.outcome.end != RunEnd::noBridge && run_.outcome.end != RunEnd::noUnit &&
      run_.outcome.end != RunEnd::otherLine)
    attempt([this] { NetworkCommunicationOK(run_, network_, detection_, true); });
}

void Connection::overSerial(const std::function<void()>& job) { noteLostLine(attempt(job)); }

// A run that broke off, or a line that went away meanwhile, is a fault of the line, however many registers
// took before it or afterwards.
void Connection::noteLostLine(bool cameToItsEnd) {
  if (bridgeIsLost_ && !wasInterrupted()) run_.outcome.end = RunEnd::wiring;
  if (run_.outcome.end != RunEnd::finished) return;
  const bool goesOn =
      run_.outcome.count(Verdict::failed) == 0 || (!run_.outcome.lostItsPort() && isReachable());
  if (!cameToItsEnd || !goesOn) run_.outcome.end = RunEnd::wiring;
}

// A register without a bridge takes a quarter of a minute to fail; the others are not tried then.
void Connection::watchBridge() {
  const std::vector<RegisterOutcome>& registers = run_.outcome.registers;
  if (bridgeIsLost_ || registers.size() == registersWatched_) return;
  registersWatched_ = registers.size();
  if (registers.empty() || registers.back().verdict != Verdict::failed || isReachable()) return;
  bridgeIsLost_ = true;
  Global.CancelFlag = True;
}

bool Connection::isReachable() {
  try {
    if (line_.name.overBridge()) {
      connectToBridge();
    } else {
      port_->open();
      port_->close();
    }
    return true;
  } catch (const RuntimeError&) {
  } catch (const Problem&) {
  }
  return false;
}

void Connection::writeOnSerial(bool reset, bool force, std::int16_t isRkw77) {
  meetOnSerial();
  mustNotBeCancelled();
  if (DeviceState.IsRkw77 != isRkw77 && !force) otherLine(lineText(line_.name), otherLineHint);
  mustFitModel();
  view_.upProg(3);
  overSerial([this] { writeConfiguration(run_, serial_); });
  if (!reset || run_.outcome.end == RunEnd::wiring) return;
  std::int16_t mode = resetOnly;
  comOK(run_, serial_, mode);
}

void Connection::overBridge() {
  view_.said.clear();
  view_.quiet = true;
  const std::int16_t came = NetworkFullConnect(run_, network_, detection_);
  if (came == job::noBridge) noBridge(lineText(line_.name));
  view_.quiet = false;
  if (came == job::noUnit && run_.outcome.end != RunEnd::otherLine) noUnit(lineText(line_.name), view_.said);
  if (run_.outcome.end == RunEnd::otherLine && !run_.reading) otherLine(lineText(line_.name), nothingWritten);
  noteLostLine(true);
}

// Without a setup nothing tells which line the unit behind a bridge is of; it is asked, and then read as
// such.
void Connection::read() {
  if (namesLine(line_.model)) DeviceState.IsRkw77 = asFlag(lineOf(line_.model) == UnitFamily::rkw77);
  begin(true);
  Global.ReadConfirmed = 1;
  if (!line_.name.overBridge()) {
    meetOnSerial();
    mustFitModel();
    overSerial([this] { readConfiguration(run_, serial_); });
    return;
  }
  overBridge();
  if (run_.outcome.end != RunEnd::otherLine) return;
  if (namesLine(line_.model))
    noUnit(lineText(line_.name), "A unit of the other line than " + line_.model + " answers there.");
  DeviceState.IsRkw77 = asFlag(!onRkw77Line());
  begin(true);
  Global.ReadConfirmed = 1;
  overBridge();
}

}  // namespace torvane::tool
