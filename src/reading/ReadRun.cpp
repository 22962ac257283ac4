// SPDX-License-Identifier: MIT
// The read run: every register of the unit into the working image, and that onto the tabs.
#include "core/Global.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"
#include "protocol/Steps.h"
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

void frmSerial::ReadConfigurationFromDevice() {
  channel.wiringProblem = False;
  for (int step = 0; step <= lastStep; ++step) {
    channel.registerMask = 0;
    for (const RegisterStep& row : rowsOf(step)) readRow(row);
    if (step == pauseStep) moveBar(pauseStepPercent);
    if (step == 0 && channel.wiringProblem != False) {
      messageBox("A communications connection/wiring problem seems to exist");
    }
    host().yield();
    if (Global.CancelFlag != False) break;
  }
  auto& editor = form<frmBigFolder>();
  for (std::int16_t tab = 0; tab < editor.tabBig.tabs(); ++tab) {
    editor.loadMemo(tab);
    host().yield();
  }
}

void frmSerial::readRow(const RegisterStep& row) {
  if (isRead(row)) {
    upStat(false, std::string(row.readLabel) + "\r");
    const std::string outcome = row.decode(ReadSerial(row.reg));
    if (row.decode == parseAl2Cnfg && outcome != "Fail" && DeviceState.IsRkw77 != False)
      takeAnalogOutputAway();
    upStat(true, outcome);
  }
  moveBar(row.percent);
}
