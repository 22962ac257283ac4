// SPDX-License-Identifier: MIT
// What the choosers do with a unit beside a write and a read.
#include "dialogs/UnitRuns.h"

#include <optional>
#include <string>
#include <utility>

#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "knowledge/Compare.h"
#include "knowledge/UnitFile.h"
#include "platform/Host.h"
#include "protocol/frmSerial.h"
#include "runs/ImageRun.h"

namespace {

constexpr const char* busAddress = "21";

// In the status window, on the line of the communication tab.
RunOutcome runJob(bool reading, UnitJob job) {
  Global.AutoDetect = False;
  Global.ReadConfirmed = reading ? 1 : 0;
  auto& window = form<frmSerial>();
  window.readMode = asFlag(reading);
  window.job = std::move(job);
  window.showModal();
  RunOutcome outcome = window.run.outcome;
  Global.ReadConfirmed = 0;
  unload<frmSerial>();
  return outcome;
}

// Nothing of a unit that was not read to its end can be compared.
bool isWhole(const RunOutcome& outcome) {
  if (outcome.end == RunEnd::finished && !outcome.registers.empty()) return true;
  if (outcome.end != RunEnd::cancelled && outcome.end != RunEnd::noUnit && outcome.end != RunEnd::noBridge) {
    messageBox("The unit could not be read: " + summaryOf(outcome) + "\rNothing was changed.", "",
               Icon::critical);
  }
  return false;
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

std::optional<UnitImage> readUnit() {
  UnitImage image;
  const RunOutcome outcome =
      runJob(true, [&image](Run& run, Channel& channel) { image = readImage(run, channel); });
  return isWhole(outcome) ? std::optional(image) : std::nullopt;
}

// The next command has to reach the unit where it is.
void followAddress(const RunOutcome& outcome, UnitImage copy) {
  if (isUnaddressed() || !outcome.settled(busAddress)) return;
  Hardware.BusAddress = toInt16(hexValue(contentOf(copy, busAddress).payload));
  attempt([] { form<frmHardware>().txtAddress.setText(numberText(std::int32_t{Hardware.BusAddress})); });
}

std::optional<UnitImage> openCopy() {
  const std::string path = host().chooseFileToOpen(unitFilter);
  if (path.empty()) return std::nullopt;
  UnitFileContent content;
  try {
    content = readUnitFile(host().readFile(path, longestUnitFile + 1));
  } catch (const RuntimeError& error) {
    content.fault = error.what();
  }
  if (!content.image) messageBox(path + "\r" + content.fault, "", Icon::critical);
  return content.image;
}

// Behind changed bus settings the unit answers elsewhere: its registers were verified one by one, and that
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

}  // namespace

bool compareUnit(bool mayWrite) {
  UnitImage image;
  EncodedSetup setup;
  const RunOutcome outcome = runJob(true, [&](Run& run, Channel& channel) {
    run.view.commitTabs();
    setup = encodeSetup();
    image = readImage(run, channel);
  });
  if (!isWhole(outcome)) return false;
  auto& window = form<frmCompare>();
  window.compareSetup(image, setup, mayWrite);
  window.showModal();
  const bool writes = window.writeAsked;
  unload<frmCompare>();
  return writes;
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
  if (writes) writeBack(*copy, busToo);
}
