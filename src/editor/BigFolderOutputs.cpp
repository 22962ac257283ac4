// SPDX-License-Identifier: MIT
// The rules between the controls of the two outputs.
#include <algorithm>

#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/ControlGroups.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

std::string asText(const ScrollBar& bar) { return numberText(std::int32_t{bar.value()}); }

}  // namespace

void frmBigFolder::wireOutputs() {
  cboOut1Ctrl.onClick = [this] { cboOut1Ctrl_Click(); };
  cboOut2Ctrl.onClick = [this] { cboOut2Ctrl_Click(); };
  chkOut1AutoPID.onClick = [this] { Out1AutoDisable(!chkOut1AutoPID.ticked()); };
  chkOut2AutoPID.onClick = [this] { chkOut2AutoPID_Click(); };
  chkOut1Self.onClick = [this] { chkOut1Self_Click(); };
  HSOut1CycleT.onChange = [this] { lblOut1CycleTDisplay.setCaption(asText(HSOut1CycleT)); };
  HSOut1High.onChange = [this] { lblOut1HighDisplay.setCaption(asText(HSOut1High)); };
  HSOut1Low.onChange = [this] { lblOut1LowDisplay.setCaption(asText(HSOut1Low)); };
  HSOut2CycleT.onChange = [this] { txtOut2CycleT.setText(asText(HSOut2CycleT)); };
  txtOut2CycleT.setText(asText(HSOut2CycleT));
  txtOut2CycleT.onKeyPress = [this] { txtOut2CycleT_KeyPress(); };
}

// An analog output has no on/off mode.
void frmBigFolder::cboOut1Ctrl_Click() {
  const int mode = cboOut1Ctrl.listIndex();
  if (mode == 0 && output1IsAnalog()) {
    cboOut1Ctrl.setListIndex(1);
  } else if (mode >= 0) {
    const bool pid = mode == 1;
    fraOut1PID.setVisible(pid);
    fraOut1OnOff.setVisible(!pid);
    if (!pid || !output1IsAnalog()) enableAll({&HSOut1CycleT, &lblOut1CycleTDisplay}, pid);
    Out1AutoDisable(pid);
  }
}

void frmBigFolder::cboOut2Ctrl_Click() {
  if (cboOut2Ctrl.listIndex() < 0) return;
  const bool pid = cboOut2Ctrl.listIndex() == 1;
  fraOut2PID.setVisible(pid);
  fraOut2OnOff.setVisible(!pid);
  enableAll({&HSOut2CycleT, &txtOut2CycleT}, pid);
  autoTuneRule();
}

void frmBigFolder::chkOut2AutoPID_Click() {
  const bool automatic = chkOut2AutoPID.ticked();
  txtOut2PB.setEnabled(!automatic);
  lblOut2Pid.setCaption(automatic ? "Reset, rate, damping, and Auto-Integral values are the same as Out 1"
                                  : "Please enter the value for PB.  Reset and rate are the same as Out 1");
  autoTuneRule();
}

// Auto-tune needs an output in PID with auto PID on.
bool frmBigFolder::canAutoTune() const {
  return (cboOut1Ctrl.listIndex() > 0 && chkOut1AutoPID.ticked()) ||
         (cboOut2Ctrl.listIndex() > 0 && chkOut2AutoPID.ticked());
}

void frmBigFolder::autoTuneRule() {
  chkOut1Start.setEnabled(canAutoTune());
  if (!canAutoTune()) chkOut1Start.setTicked(false);
}

void frmBigFolder::Out1AutoDisable(bool enable) {
  enableAll({&txtOut1PB, &txtOut1Reset, &txtOut1Rate}, enable);
  autoTuneRule();
}

void frmBigFolder::fOut1Manual(bool enable) {
  enableAll(
      {&fraOut1Manual, &HSOut1Low, &lblOut1LowDisplay, &HSOut1High, &lblOut1HighDisplay,
       &lblOut1CycleTDisplay, &txtOut1DeadBand, &cboOut1Ctrl, &cboOut1Action, &chkOut1AutoPID, &chkOut1Anti},
      enable);
  autoTuneRule();
  lstOut1DamFactor.setEnabled(enable);
}

void frmBigFolder::chkOut1Self_Click() {
  if (onRkw77Line()) return;
  if (chkOut1Self.ticked()) {
    fOut1Manual(false);
    enableAll({&HSOut1CycleT, &lblOut1CycleTDisplay, &txtOut1PB, &txtOut1Reset, &txtOut1Rate, &chkOut1Start},
              false);
    return;
  }
  fOut1Manual(true);
  const bool pid = cboOut1Ctrl.listIndex() == 1;
  if (pid && !output1IsAnalog()) enableAll({&HSOut1CycleT, &lblOut1CycleTDisplay}, true);
  autoTuneRule();
  if (chkOut1AutoPID.ticked()) {
    chkOut1Start.setEnabled(true);
    return;
  }
  enableAll({&txtOut1PB, &txtOut1Reset, &txtOut1Rate}, true);
  if (!chkOut2AutoPID.ticked()) {
    chkOut1Start.setEnabled(false);
    chkOut1Start.setTicked(false);
  } else {
    chkOut1Start.setEnabled(cboOut1Ctrl.listIndex() > 0);
  }
}

void frmBigFolder::txtOut2CycleT_KeyPress() {
  const int seconds = toInt16(std::clamp(Val(txtOut2CycleT.text().substr(0, 3)), 1.0, 199.0));
  txtOut2CycleT.setText(numberText(std::int32_t{seconds}));
  HSOut2CycleT.setValue(seconds);
}

}  // namespace torvane
