// SPDX-License-Identifier: MIT
// The write run: every register of the unit, one step after the other, from the working image.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"
#include "protocol/RunBody.h"
#include "protocol/Steps.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"

namespace {

constexpr const char* dividedByZero = "Divide by zero";

enum : int { inputTypeStep = 0, readingScaleStep = 4, analogOutputStep = 27, busSettingsStep = 30 };

void tellWiringProblem() { messageBox("A communications connection/wiring problem seems to exist"); }

bool skipsReadingOffset() {
  return messageBox(
             "Divide by Zero Error!\rIn1 and In2 in Reading Scale & Offset cannot be of\rthe same value."
             "Skip Reading Offset and continue?",
             "Set-Up Error(s)...", Icon::critical, Buttons::yesNo) == Answer::yes;
}

}  // namespace

void frmSerial::WriteConfigurationToDevice() { writeConfiguration(serialBody); }

void frmSerial::writeConfiguration(const RunBody& body) {
  body_ = &body;
  if (body.heedsWiring) channel.wiringProblem = False;
  for (int step = 0; step <= lastStep; ++step) {
    body.registerMask(*this) = 0;
    if (!writeStep(step)) return;
    host().yield();
    if (wiringFault()) {
      tellWiringProblem();
      return;
    }
    if (Global.CancelFlag != False) return;
  }
}

bool frmSerial::wiringFault() const { return body_->heedsWiring && channel.wiringProblem != False; }

// False ends the run.
bool frmSerial::writeStep(int step) {
  switch (step) {
    case inputTypeStep:
      return writeInputType();
    case readingScaleStep:
      return writeReadingScale();
    case pauseStep:
      moveBar(pauseStepPercent);
      return true;
    case analogOutputStep:
      writeAnalogOutput();
      return true;
    case busSettingsStep:
      writeBusSettings();
      return true;
    default:
      writeRow(rowsOf(step).front());
      return true;
  }
}

// A dead line shows at 3 percent and not at 6.
bool frmSerial::writeInputType() {
  const RegisterStep& row = rowsOf(inputTypeStep).front();
  upStat(true, sendRow(row));
  if (wiringFault()) {
    tellWiringProblem();
    return false;
  }
  moveBar(row.percent);
  return true;
}

// Without a scale there is no offset; the user may go on without both.
bool frmSerial::writeReadingScale() {
  const auto rows = rowsOf(readingScaleStep);
  const std::string outcome = sendRow(rows[0]);
  moveBar(rows[0].percent);
  if (outcome != dividedByZero) {
    upStat(true, outcome);
    pause(0);
    writeRow(rows[1]);
    return true;
  }
  upStat(true, "Reading Scale and Offset error");
  if (skipsReadingOffset()) return true;
  form<frmBigFolder>().tabBig.setTab(tab::reading);
  hide();
  return false;
}

// Unlike the reading scale, an impossible one passes in silence.
void frmSerial::writeAnalogOutput() {
  const auto rows = rowsOf(analogOutputStep);
  const std::string outcome = sendRow(rows[0]);
  moveBar(rows[0].percent);
  if (outcome == dividedByZero) return;
  upStat(true, outcome);
  pause(0);
  writeRow(rows[1]);
}

void frmSerial::writeBusSettings() {
  const auto rows = rowsOf(busSettingsStep);
  if (Memo[rec::optNoChange].flag != False) {
    upStat(false, std::string(rows[0].writeLabel) + "\r");
    return;
  }
  writeRow(rows[0]);
  if (Memo[rec::optRS485].flag != False) writeRow(rows[1]);
}

void frmSerial::writeRow(const RegisterStep& row) {
  upStat(true, sendRow(row));
  moveBar(row.percent);
}

// Label, payload and traffic of one register; the outcome is left to the caller.
std::string frmSerial::sendRow(const RegisterStep& row) {
  upStat(false, body_->writeLabel(row) + "\r");
  const Encoded encoded = row.encode();
  body_->registerMask(*this) = encoded.mask;
  if (encoded.notice != nullptr) {
    messageBox(encoded.notice->text, encoded.notice->title,
               encoded.notice->critical ? Icon::critical : Icon::none);
  }
  return (this->*body_->writeRegister)(row.reg, encoded.payload);
}

void frmSerial::moveBar(int percent) {
  if (percent != unchanged) upProg(static_cast<std::int16_t>(percent));
}
