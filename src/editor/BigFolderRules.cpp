// SPDX-License-Identifier: MIT
// A choice on one control changes what the others offer: alarms, ID code, ramp and soak, analog output,
// reading.
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "editor/AlarmSetup.h"
#include "editor/ControlGroups.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

enum : int { absolute = 0, deviation = 1 };

// Which of the two set points an alarm uses.
void setPointRule(const ComboBox& setup, TextBox& high, TextBox& low) {
  const int index = setup.listIndex();
  if (index < alarmSetup::above || index > alarmSetup::band) return;
  high.setEnabled(index != alarmSetup::below);
  low.setEnabled(index == alarmSetup::below || index == alarmSetup::hiLo);
}

// The dialog decides while it stands open: what it has chosen enters the model with OK.
bool hasAnalogOutput() {
  return output1IsAnalog() || (isLoaded<frmHardware>() && form<frmHardware>().optOut[3].value());
}

}  // namespace

void frmBigFolder::wireDependentControls() {
  for (std::size_t index = 0; index < optInType.count(); ++index) {
    optInType(index).onClick = [this, index] { optInType_Click(index); };
  }
  lstProc.onClick = cboRTDValue.onClick = cboRTDWires.onClick = [this] { doInputImage(); };
  chkAl1Enabled.onClick = [this] { alarm1Enabled_Click(); };
  chkAl2Enabled.onClick = [this] { Al2Disabled(chkAl2Enabled.ticked()); };
  // An alarm that is off has no set points in use, whatever action a setup that is shown brings along.
  cboAl1Setup.onClick = [this] {
    setPointRule(cboAl1Setup, txtAl1HiSp, txtAl1LoSp);
    if (!chkAl1Enabled.ticked()) enableAll({&txtAl1HiSp, &txtAl1LoSp}, false);
  };
  cboAl2Setup.onClick = [this] {
    setPointRule(cboAl2Setup, txtAl2HiSp, txtAl2LoSp);
    if (!chkAl2Enabled.ticked()) enableAll({&txtAl2HiSp, &txtAl2LoSp}, false);
  };
  cboAl1Ctrl.onClick = [this] { cboAl1Ctrl_Click(); };
  cboAl2Ctrl.onClick = [this] { cboAl2Ctrl_Click(); };
  chkIDEnabled.onClick = [this] { idDisable(chkIDEnabled.ticked()); };
  chkLBAEnabled.onClick = [this] { txtLBATime.setEnabled(chkLBAEnabled.ticked()); };
  chkRampEn.onClick = [this] { chkRampEn_Click(); };
  chkSoakEn.onClick = [this] { txtSoakT.setEnabled(chkSoakEn.ticked()); };
  chkAnalogOutputEnabled.onClick = [this] {
    const bool enabled = chkAnalogOutputEnabled.ticked();
    tabBig.setTabAvailable(tab::out1, !enabled);
    AnalogOutControls(enabled);
  };
}

// The window as it stands before any record is shown: nothing is ticked, the thermocouple page is on top.
void frmBigFolder::firstLooks() {
  fraInType(1).setVisible(false);
  fraInType(2).setVisible(false);
  fraSOffset.setVisible(false);
  plotReading.setVisible(false);
  fraOut1PID.setVisible(false);
  fraOut2PID.setVisible(false);
  fraTCPIPAddress.setVisible(false);
  fraTCPIPPort.setVisible(false);
  Al1Disabled(false);
  Al2Disabled(false);
  idDisable(false);
  chkRampEn_Click();
  txtLBATime.setEnabled(false);
  chkOut1Start.setEnabled(false);
  cboCommPort_Click();
  doInputImage();
}

void frmBigFolder::optInType_Click(std::size_t index) {
  for (std::size_t page = 0; page < fraInType.count(); ++page) fraInType(page).setVisible(page == index);
  rdSOffsetDisable(optInType(2).value());
  doInputImage();
}

// Without an analog output the enable of one would keep the bit that it shares with the alarm's set in the
// unit, and the alarm could never be switched off.
void frmBigFolder::alarm1Enabled_Click() {
  const bool enabled = chkAl1Enabled.ticked();
  Al1Disabled(enabled);
  if (!enabled && !hasAnalogOutput()) chkAnalogOutputEnabled.setTicked(false);
}

void frmBigFolder::Al1Disabled(bool enable) {
  enableAll({&cboAl1Ctrl, &cboAl1Latch, &cboAl1Closure, &cboAl1Setup, &cboAl1WhenActiveColor}, enable);
  if (setupHasMenu(menu::simple)) {
    enableAll({&fraAl1Deadband, &txtAl1Deadband}, enable);
  } else if (!onRkw77Line()) {
    tabBig.setTabAvailable(tab::out1, !enable);
  }
  setPointRule(cboAl1Setup, txtAl1HiSp, txtAl1LoSp);
  if (!enable) enableAll({&txtAl1HiSp, &txtAl1LoSp}, false);
}

void frmBigFolder::Al2Disabled(bool enable) {
  enableAll({&cboAl2Ctrl, &cboAl2Latch, &cboAl2Closure, &cboAl2Setup, &cboAl2WhenActiveColor}, enable);
  tabBig.setTabAvailable(tab::out2, !enable);
  if (setupHasMenu(menu::simple)) enableAll({&fraAl2Deadband, &txtAl2Deadband}, enable);
  setPointRule(cboAl2Setup, txtAl2HiSp, txtAl2LoSp);
  if (!enable) enableAll({&txtAl2HiSp, &txtAl2LoSp}, false);
}

void frmBigFolder::cboAl1Ctrl_Click() {
  if (cboAl1Ctrl.listIndex() == deviation) {
    alarmSetup::offerBand(cboAl1Setup);
  } else if (cboAl1Ctrl.listIndex() == absolute && setupHasMenu(menu::simple)) {
    alarmSetup::withdrawHiLo(cboAl1Setup);
  } else if (cboAl1Ctrl.listIndex() == absolute) {
    alarmSetup::offerHiLo(cboAl1Setup);
    alarmSetup::withdrawBand(cboAl1Setup);
  }
}

// On "Absolute" this one has always looked at alarm 1's list for "Hi/Lo", with another count; units in the
// field are prepared with it so. What it does about it, it does to its own list, which never offers an action
// twice.
void frmBigFolder::cboAl2Ctrl_Click() {
  const bool threeOfAlarm1 = cboAl1Setup.listCount() == alarmSetup::absoluteCount;
  if (cboAl2Ctrl.listIndex() == deviation) {
    alarmSetup::offerBand(cboAl2Setup);
  } else if (cboAl2Ctrl.listIndex() == absolute && setupHasMenu(menu::simple)) {
    if (threeOfAlarm1) alarmSetup::withdrawHiLo(cboAl2Setup);
  } else if (cboAl2Ctrl.listIndex() == absolute) {
    if (threeOfAlarm1) alarmSetup::offerHiLo(cboAl2Setup);
    alarmSetup::withdrawBand(cboAl2Setup);
  }
}

void frmBigFolder::AnalogOutControls(bool enable) {
  enableAll({&optAOutV, &optAOutI, &txtAOutRd1, &txtAOutRd2, &txtAOutOut1, &txtAOutOut2}, enable);
}

void frmBigFolder::idDisable(bool show) {
  for (Control* control : std::initializer_list<Control*>{&lblIDInst, &lblIDCode, &lblIDWarn, &txtIDCode}) {
    control->setVisible(show);
  }
  lblIDDisabled.setVisible(!show);
}

// Only a process signal has a scale of its own and more than one decimal. The choice moves with its record,
// or the next commit would bring the decimals back.
void frmBigFolder::rdSOffsetDisable(bool show) {
  fraSOffset.setVisible(show);
  fraNoSOffset.setVisible(!show);
  plotReading.setVisible(show);
  for (int finer : {rec::optDpoint + 2, rec::optDpoint + 3}) {
    if (show || !isChosen(finer)) continue;
    Memo[finer].flag = False;
    Memo[rec::optDpoint + 1].flag = True;
    optDpoint(1).setValue(true);
    break;
  }
  enableAll({&optDpoint(2), &optDpoint(3)}, show);
  cboTUnit.setVisible(!show);
  lblTUnit.setVisible(!show);
}

void frmBigFolder::chkRampEn_Click() {
  const bool ramp = chkRampEn.ticked();
  enableAll({&txtRampT, &chkSoakEn, &picProcess}, ramp);
  txtSoakT.setEnabled(ramp && chkSoakEn.ticked());
}

}  // namespace torvane
