// SPDX-License-Identifier: MIT
// Bringing the hardware dialog and the main window into line with the family of the unit.
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "editor/ControlGroups.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

void offerRkw77Line(frmHardware& dialog) {
  dialog.chkAlarmsOnly.setTicked(false);
  dialog.chkSimpleMenu.setTicked(false);
  DeviceState.MenuKind = menu::full;
  for (CheckBox* variant :
       {&dialog.chkAlarmsOnly, &dialog.chkSimpleMenu, &dialog.chkIsoAnalogOutput, &dialog.chkMonitor}) {
    clearAndDisable(*variant);
  }
  dialog.optOut[7].setVisible(true);
  const int row = dialog.offerOptions(rkw77Options);
  dialog.lstOption.setListIndex(0);
  if (row < 2) dialog.lstOption.setListIndex(row);
}

void offerOtherFamilies(frmHardware& dialog) {
  dialog.chkAlarmsOnly.setTicked(false);
  if (DeviceState.MenuKind == menu::alarmsOnly) dialog.chkAlarmsOnly.setTicked(true);
  if (DeviceState.MenuKind == menu::simple) dialog.chkSimpleMenu.setTicked(true);
  dialog.chkAlarmsOnly.setEnabled(true);
  dialog.chkSimpleMenu.setEnabled(true);
  dialog.chkAllPartNumbers.setTicked(false);
  clearAndDisable(dialog.chkIsoAnalogOutput);
  dialog.chkMonitor.setEnabled(true);
  dialog.chkMonitor.setTicked(false);
  dialog.optOut[3].setVisible(true);
  dialog.optOut[7].setVisible(false);
  dialog.lstOption.setListIndex(dialog.offerOptions(familyOptions));
}

}  // namespace

void frmBigFolder::applyDeviceClass() {
  if (onRkw77Line()) {
    offerRkw77Line(form<frmHardware>());
    fitToRkw77Line();
  } else {
    offerOtherFamilies(form<frmHardware>());
    fitToOtherFamilies();
  }
}

// The Rkw77 line has no colours, no deviation set point and no code of its own to protect them.
void frmBigFolder::showColorsAndProtection(bool show) {
  for (Control* control :
       std::initializer_list<Control*>{&fraIDCode, &chkSPDeviation, &fraColor, &cboNormalColor,
                                       &lblColorWhenNormal, &lblAl1Color, &cboAl1WhenActiveColor}) {
    control->setVisible(show);
  }
}

void frmBigFolder::fitToRkw77Line() {
  tabBig.setTabAvailable(tab::alarm1, true);
  tabBig.setTabAvailable(tab::alarm2, false);
  Al2Disabled(chkAl2Enabled.ticked());
  tabBig.setTabAvailable(tab::analog, false);
  showColorsAndProtection(false);
  tabBig.setTabAvailable(tab::out1, true);
  doInputImage();  // its terminals have other numbers than those of the family before it
}

void frmBigFolder::fitToOtherFamilies() {
  Al2Disabled(chkAl2Enabled.ticked());
  tabBig.setTabAvailable(tab::alarm2, true);
  showColorsAndProtection(true);
  redrawInputType();
  if (DeviceState.MenuKind != menu::alarmsOnly) return;
  for (int tab : {tab::lbAlarm, tab::out1, tab::out2, tab::rampSoak}) tabBig.setTabAvailable(tab, false);
}

// Setting the input type anew redraws what depends on it. A process signal is redrawn where it stands: on the
// way over the two others it would lose the decimals that only it may have.
void frmBigFolder::redrawInputType() {
  if (optInType(2).value()) return optInType_Click(2);
  const std::size_t chosen = optInType(0).value() ? 0 : 1;
  if (!optInType(chosen).value()) return;
  optInType(0).setValue(true);
  optInType(1).setValue(true);
  optInType(chosen).setValue(true);
}

}  // namespace torvane
