// SPDX-License-Identifier: MIT
// The read run: every register of the unit into the working image, and that onto the tabs.
#include "core/Global.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"
#include "protocol/RunBody.h"
#include "protocol/Steps.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"
#include "reading/Decoders.h"

namespace {

bool isRead(const RegisterStep& row) { return row.onRkw77 || DeviceState.IsRkw77 == False; }

// The Rkw77 line has no analog output to enable: its alarm 2 register takes the choice off the window.
void takeAnalogOutputAway() {
  auto& editor = form<frmBigFolder>();
  editor.chkAnalogOutputEnabled.setEnabled(false);
  editor.chkAnalogOutputEnabled.setValue(0);
}

}  // namespace

void frmSerial::ReadConfigurationFromDevice() { readConfiguration(serialBody); }

void frmSerial::readConfiguration(const RunBody& body) {
  body_ = &body;
  if (body.heedsWiring) channel.wiringProblem = False;
  int failedSteps = 0;
  for (int step = 0; step <= lastStep; ++step) {
    body.registerMask(*this) = 0;
    readStep(step);
    host().yield();
    if (Global.CancelFlag != False || givesUp(failedSteps)) break;
  }
  showOnTabs();
}

void frmSerial::readStep(int step) {
  const auto rows = rowsOf(step);
  for (const RegisterStep& row : rows) {
    if (&row != rows.data() && body_->restsWithinSteps) pause(0);
    readRow(row);
  }
  if (step == pauseStep) moveBar(pauseStepPercent);
  if (step == 0 && wiringFault()) {
    messageBox("A communications connection/wiring problem seems to exist");
  }
}

// A step counts by its last register alone, and one that read nothing by that of the step before it.
bool frmSerial::givesUp(int& failedSteps) {
  if (!body_->lastReadFailed(*this)) return false;
  if (++failedSteps <= body_->failedStepsBorne) return false;
  messageBox("TCP Communication with the device has failed.");
  return true;
}

void frmSerial::showOnTabs() {
  form<frmBigFolder>().showRecords([] { host().yield(); });
}

void frmSerial::readRow(const RegisterStep& row) {
  if (isRead(row)) {
    upStat(false, body_->readLabel(row) + "\r");
    const std::string outcome = row.decode((this->*body_->readRegister)(row.reg));
    if (row.decode == parseAl2Cnfg && outcome != "Fail" && DeviceState.IsRkw77 != False)
      takeAnalogOutputAway();
    upStat(true, outcome);
  }
  moveBar(row.percent);
}
