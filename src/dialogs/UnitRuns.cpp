// SPDX-License-Identifier: MIT
// What the choosers do with a unit beside a write and a read.
#include "dialogs/UnitRuns.h"

#include <optional>
#include <string>
#include <utility>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/ScopedRestore.h"
#include "dialogs/KeptCopies.h"
#include "dialogs/RunHead.h"
#include "dialogs/TextOutput.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmRecord.h"
#include "editor/frmBigFolder.h"
#include "knowledge/Compare.h"
#include "knowledge/UnitFile.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "protocol/frmSerial.h"
#include "runs/AsLeftRun.h"
#include "runs/ImageRun.h"

namespace torvane {

namespace {

constexpr const char* busAddress = "21";

// In the status window, on the line of the communication tab.
RunOutcome runJob(bool reading, const UnitJob& job) {
  // What the probe finds out fits the window to the unit after a write or a read. Where neither takes place
  // the window stays with its setup.
  const ScopedRestore deviceState(DeviceState);
  const ScopedRestore baseModel(BaseModel);
  Global.AutoDetect = False;
  Global.ReadConfirmed = reading ? 1 : 0;
  auto& window = form<frmSerial>();
  const auto alive = window.shared_from_this();  // after a search the window ends by itself
  window.readMode = asFlag(reading);
  window.job = [&job](Run& run, Channel& channel) {
    if (!attempt([&] { job(run, channel); })) run.outcome.end = RunEnd::replyFault;
  };
  window.showModal();
  RunOutcome outcome = window.run.outcome;
  Global.ReadConfirmed = 0;
  unload<frmSerial>();
  return outcome;
}

// Nothing of a unit that was not read to its end can be compared. Of a unit that did not answer at all the
// run has said so.
bool isWhole(const RunOutcome& outcome) {
  if (outcome.end == RunEnd::finished && !outcome.registers.empty()) return true;
  if (outcome.end != RunEnd::cancelled && outcome.end != RunEnd::noUnit && outcome.end != RunEnd::noBridge) {
    messageBox("The unit could not be read. " + summaryOf(outcome) + "\rNothing was changed.", "",
               Icon::critical);
  }
  return false;
}

std::string lineInUse() {
  if (!overSerial()) return Memo[rec::txtTCPIPAddress].text + ":" + Memo[rec::txtTCPPort].text;
  const SerialPort& port = *form<frmSerial>().MSComm1;
  return "COM " + numberText(std::int32_t{port.commPort}) + " " + port.settings;
}

// Which unit answers is known once it has been looked for: what it hasn't got is not sent to it.
EncodedSetup forUnit(EncodedSetup setup, int kind) {
  for (std::size_t place = 0; place < registerCount; ++place) {
    SetupRegister& wanted = setup.registers[place];
    wanted.mask &= maskOf(registerRows()[place].reg, kind);
    wanted.sent = wanted.sent && wanted.mask != 0;
  }
  return setup;
}

UnitImage readWhole(Run& run, Channel& channel) {
  std::string version = overSerial() ? Global.FirmwareVersion : versionOf(channel);
  UnitImage image = readImage(run, channel);
  image.version = std::move(version);
  image.line = lineInUse();
  return image;
}

// As the status window names it, without the address, which a write may have changed.
std::string lineOf(const RunOutcome& outcome) {
  std::string line = outcome.line;
  if (!outcome.address) return line;
  const std::string address = ", address " + numberText(std::int32_t{*outcome.address});
  if (line.ends_with(address)) line.resize(line.size() - address.size());
  return line;
}

std::optional<UnitImage> readUnit(std::string& line) {
  UnitImage image;
  const RunOutcome outcome =
      runJob(true, [&image](Run& run, Channel& channel) { image = readWhole(run, channel); });
  line = lineOf(outcome);
  return isWhole(outcome) ? std::optional(image) : std::nullopt;
}

std::optional<UnitImage> readUnit() {
  std::string line;
  return readUnit(line);
}

// The next command has to reach the unit where it is.
void followAddress(const RunOutcome& outcome, UnitImage copy) {
  if (isUnaddressed() || !outcome.settled(busAddress)) return;
  Hardware.BusAddress = toInt16(hexValue(contentOf(copy, busAddress).payload));
  attempt([] { form<frmHardware>().txtAddress.setText(numberText(std::int32_t{Hardware.BusAddress})); });
}

std::optional<UnitImage> openCopy() {
  const std::string path = host<Files>().chooseFileToOpen(unitFilter);
  if (path.empty()) return std::nullopt;
  UnitFileContent content;
  try {
    content = readUnitFile(host<Files>().readFile(path, longestUnitFile + 1));
  } catch (const RuntimeError& error) {
    content.fault = std::string("It can't be read: ") + error.what();
  }
  if (!content.image) messageBox(path + "\r" + content.fault, "", Icon::critical);
  return content.image;
}

// After changed bus settings the unit answers elsewhere: its registers were verified one by one, and that
// stands.
void verify(const UnitImage& copy, bool busToo) {
  if (busToo) return;
  const std::optional<UnitImage> now = readUnit();
  if (!now) return;
  const Comparison left = compare(*now, setupOf(copy, busToo));
  messageBox(left.same() ? "The unit holds all that the copy holds." : "Read again: " + summaryOf(left), "",
             left.same() ? Icon::information : Icon::critical);
}

void writeBack(const UnitImage& copy, bool busToo) {
  const EncodedSetup wanted = setupOf(copy, busToo);
  const RunOutcome outcome = runJob(false, [&wanted](Run& run, Channel& channel) {
    writeEncoded(run, channel, forUnit(wanted, meterKind()));
  });
  followAddress(outcome, copy);
  if (outcome.passed()) verify(copy, busToo);
}

// True: the write may go on.
bool keepFirst(std::string& kept) {
  const std::optional<UnitImage> unit = readUnit();
  return unit && keepBeforeWrite(*unit, kept);
}

void sayWhereKept(const std::string& kept) {
  if (kept.empty()) return;
  form<frmBigFolder>().setNote("The unit as it was before is kept in " + kept, false);
}

}  // namespace

bool compareUnit() {
  UnitImage image;
  EncodedSetup setup;
  const bool wasRkw77 = onRkw77Line();
  const RunOutcome outcome = runJob(true, [&](Run& run, Channel& channel) {
    run.view.commitTabs();
    setup = encodeSetup();
    image = readWhole(run, channel);
  });
  if (!isWhole(outcome)) return false;
  auto& window = form<frmCompare>();
  window.compareSetup(image, setup, wasRkw77 != (image.kind == kind::rkw77));
  window.showModal();
  const bool writes = window.writeAsked;
  unload<frmCompare>();
  return writes;
}

void keepCopy() {
  if (const std::optional<UnitImage> unit = readUnit()) saveCopy(*unit);
}

void putBackCopy() {
  const std::optional<UnitImage> copy = openCopy();
  if (!copy) return;
  const std::optional<UnitImage> unit = readUnit();
  if (!unit) return;
  auto& window = form<frmCompare>();
  window.compareCopy(*unit, *copy);
  window.showModal();
  const bool writes = window.writeAsked;
  const bool busToo = window.busAsked();
  unload<frmCompare>();
  std::string kept;
  if (!writes || (keepsCopies() && !keepBeforeWrite(*unit, kept))) return;
  writeBack(*copy, busToo);
  sayWhereKept(kept);
}

void writeUnit() {
  std::string kept;
  if (keepsCopies() && !keepFirst(kept)) return;
  Global.AutoDetect = False;
  auto& run = form<frmSerial>();
  run.readMode = False;
  Global.ReadConfirmed = 0;
  run.showModal();
  unload<frmSerial>();
  fitToFoundUnit();
  sayWhereKept(kept);
}

bool mayRecord() {
  const RunOutcome& last = form<frmBigFolder>().lastRun.outcome;
  return !last.reading && !last.registers.empty();
}

void verifyAndRecord() {
  if (!mayRecord()) return;
  const RunOutcome written = form<frmBigFolder>().lastRun.outcome;
  std::string line;
  const std::optional<UnitImage> now = readUnit(line);
  if (!now) return;
  if (line != lineOf(written)) {
    messageBox("The last write went to " + lineOf(written) + ", and this unit is at " + line +
                   ".\rNo record was made. Choose the line of the write on the tab Comm.",
               "", Icon::critical);
    return;
  }
  auto& window = form<frmRecord>();
  window.take(recordOf(written, *now));
  window.showModal();
  unload<frmRecord>();
}

}  // namespace torvane
