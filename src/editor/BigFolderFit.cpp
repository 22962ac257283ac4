// SPDX-License-Identifier: MIT
// Fitting the form to the model: which tabs and controls are in use.
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "editor/AlarmSetup.h"
#include "editor/ControlGroups.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

void forceOnOff(ComboBox& control) {
  control.setListIndex(0);
  control.setText("On/Off");
  control.setEnabled(false);
}

}  // namespace

void frmBigFolder::cmdCnfg_Click() {
  writeMemo(tabBig.tab());
  simpleMenuShown_ = setupHasMenu(menu::simple);
  if (isLoaded<frmHardware>() && !form<frmHardware>().isOfThisUnit()) torvane::unload<frmHardware>();
  if (SilentSetup != False) {
    settleDeviceClass();
    form<frmHardware>().cmdOk_Click();
  } else {
    form<frmHardware>().showModal();
  }
  SilentSetup = False;
  if (DeviceState.DeviceClass >= 0) applyDeviceClass();
  torvane::unload<frmHardware>();
  fitToModel();
}

void frmBigFolder::fitToModel() {
  followMenu();
  if (const auto cut = BaseModel.find("-C"); cut != std::string::npos) BaseModel.resize(cut);
  const bool analogOut = output1IsAnalog();
  if (!analogOut) {
    tabBig.setTabAvailable(tab::out1, true);
  } else if (chkAnalogOutputEnabled.ticked()) {
    tabBig.setTabAvailable(tab::out1, false);
  }
  chkAnalogOutputEnabled.setEnabled(true);
  if (Memo[rec::monitorOnly].value != 0) {
    for (int tab : {tab::out1, tab::out2, tab::rampSoak, tab::analog}) tabBig.setTabAvailable(tab, false);
  } else {
    fitToFullUnit();
    if (setupHasMenu(menu::alarmsOnly)) fitToAlarmsOnly();
    if (setupHasMenu(menu::simple)) fitToSimpleMenu();
    fitAnalogOutput();
  }
  fraOut1Manual.setEnabled(true);
  HSOut1Low.setEnabled(false);
  HSOut1High.setEnabled(false);
  if (onRkw77Line()) {
    chkAnalogOutputEnabled.setEnabled(false);
    chkAnalogOutputEnabled.setTicked(false);
    fraOut1Manual.setEnabled(false);
  }
  leaveUnavailableTab();
  for (std::int16_t tab = 1; tab < tabBig.tabs(); ++tab) writeMemo(tab);
}

void frmBigFolder::fitToFullUnit() {
  for (int tab : {tab::lbAlarm, tab::rampSoak, tab::out2}) tabBig.setTabAvailable(tab, true);
  const std::initializer_list<Control*> inUse = {&fraLBAlarm,  &chkLBAEnabled, &txtLBATime, &cboOut1Ctrl,
                                                 &cboOut2Ctrl, &chkRampEn,     &fraRamp};
  for (Control* control : inUse) control->setEnabled(true);
  const std::initializer_list<Control*> onShow = {&cboAl1Closure, &cboAl1Ctrl, &cboAl2Closure, &cboAl2Ctrl,
                                                  &lblAl1Closure, &lblAl1Ctrl, &lblAl2Closure, &lblAl2Ctrl,
                                                  &fraAl1Spts,    &fraAl2Spts, &chkAl1AutoPOn};
  for (Control* control : onShow) control->setVisible(true);
  fraAl1Deadband.setVisible(false);
  fraAl2Deadband.setVisible(false);
  alarmSetup::offerHiLo(cboAl1Setup);
  alarmSetup::offerHiLo(cboAl2Setup);
  chkAl1Enabled.setEnabled(true);
  chkAl2Enabled.setEnabled(true);
}

void frmBigFolder::fitToAlarmsOnly() {
  fraLBAlarm.setEnabled(false);
  chkLBAEnabled.setTicked(false);
  txtLBATime.setEnabled(false);
  for (int tab : {tab::out1, tab::out2, tab::rampSoak, tab::analog}) tabBig.setTabAvailable(tab, false);
}

void frmBigFolder::fitToSimpleMenu() {
  tabBig.setTabAvailable(tab::analog, false);
  forceOnOff(cboOut1Ctrl);
  chkRampEn.setTicked(false);
  for (Control* control :
       std::initializer_list<Control*>{&chkRampEn, &fraRamp, &fraLBAlarm, &chkLBAEnabled}) {
    control->setEnabled(false);
  }
  cboAl1Ctrl.setListIndex(0);
  cboAl2Ctrl.setListIndex(0);
  const std::initializer_list<Control*> hidden = {&cboAl1Closure, &cboAl1Ctrl, &cboAl2Closure, &cboAl2Ctrl,
                                                  &lblAl1Closure, &lblAl1Ctrl, &lblAl2Closure, &lblAl2Ctrl,
                                                  &fraAl1Spts,    &fraAl2Spts, &chkAl1AutoPOn};
  for (CheckBox* alarm : {&chkAl1Enabled, &chkAl2Enabled}) {
    alarm->setTicked(true);
    alarm->setEnabled(false);
  }
  fraAl1Deadband.setVisible(true);
  fraAl2Deadband.setVisible(true);
  for (Control* control : hidden) control->setVisible(false);
  alarmSetup::shorten(cboAl1Setup);
  alarmSetup::shorten(cboAl2Setup);
  for (int tab : {tab::out1, tab::out2, tab::rampSoak}) tabBig.setTabAvailable(tab, false);
  forceOnOff(cboOut2Ctrl);
}

void frmBigFolder::fitAnalogOutput() {
  const bool analogOut = output1IsAnalog();
  if (setupHasMenu(menu::simple)) {
    if (analogOut) {
      chkAnalogOutputEnabled.setTicked(true);
      chkAnalogOutputEnabled.setEnabled(false);
    }
    tabBig.setTabAvailable(tab::analog, analogOut);
    cboAl2Latch.setEnabled(analogOut);
  } else if (analogOut) {
    tabBig.setTabAvailable(tab::analog, true);
    tabBig.setTabAvailable(tab::out1, !chkAnalogOutputEnabled.ticked());
  }
}

// Tab 0 is always available.
void frmBigFolder::leaveUnavailableTab() {
  while (tabBig.tab() > 0 && !tabBig.tabAvailable(tabBig.tab())) tabBig.setTab(tabBig.tab() - 1);
}

}  // namespace torvane
