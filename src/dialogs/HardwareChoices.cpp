// SPDX-License-Identifier: MIT
// The hardware dialog: what one choice does to the part number, to the other choices and to the main window.
#include "core/Memo.h"
#include "core/Model.h"
#include "core/PartNumber.h"
#include "dialogs/frmHardware.h"
#include "editor/ControlGroups.h"
#include "editor/frmBigFolder.h"
#include "platform/WindowSystem.h"

namespace torvane {

namespace {

constexpr int analogOutput = 3;
constexpr int pidRow = 1;
constexpr std::int32_t withoutEthernet = 3;  // a family with two options and no analog output

int chosenOf(std::span<const OptionButton> group) {
  for (std::size_t index = 0; index < group.size(); ++index) {
    if (group[index].value()) return static_cast<int>(index);
  }
  return -1;
}

// A list of two options has no Ethernet: the row with the same kind of serial line.
constexpr int ofTwo(int row) { return row == 0 || row == 2 ? 0 : 1; }

void setTabsAvailable(std::initializer_list<int> tabs, bool available) {
  for (int tab : tabs) form<frmBigFolder>().tabBig.setTabAvailable(tab, available);
}

}  // namespace

std::string frmHardware::numberOfChoices() const {
  return partNumber({.model = BaseModel,
                     .monitorOnly = chkMonitor.ticked(),
                     .output1 = chosenOf(std::span(optOut).first<4>()),
                     .output2 = chosenOf(std::span(optOut).last<4>()),
                     .option = lstOption.listIndex(),
                     .rkw77Suffixes = namesRkw77(cboModel.text())});
}

std::string frmHardware::makeModel() {
  if (!ready_) return "";
  if (!chkMonitor.ticked()) fitMainWindow();
  lastPartNumber_ = numberOfChoices();
  return lastPartNumber_;
}

// An analog output takes the place of alarm 1, but for the Rkw77 line, and works in PID alone.
void frmHardware::fitMainWindow() const {
  auto& editor = form<frmBigFolder>();
  const int output = chosenOf(std::span(optOut).first<4>());
  const bool analog = output < 0 || output == analogOutput;
  if (analog) {
    editor.cboOut1Ctrl.setListIndex(pidRow);
    Memo[rec::cboOut1Ctrl].value = pidRow;
    Memo[rec::opt420mA].flag = False;
  } else {
    setTabsAvailable({tab::alarm1}, true);
    setTabsAvailable({tab::analog}, false);
  }
  for (Control* current : {&editor.opt020mA, &editor.opt420mA}) current->setEnabled(analog);
  for (Control* cycle : std::initializer_list<Control*>{&editor.HSOut1CycleT, &editor.lblOut1CycleTDisplay}) {
    cycle->setEnabled(!analog);
  }
  if (!analog) return;
  if (!onRkw77Line()) {
    Memo[rec::chkAl1Enabled].value = 0;
    editor.chkAl1Enabled.setTicked(false);
    setTabsAvailable({tab::alarm1}, false);
  }
  setTabsAvailable({tab::analog}, true);
  host<WindowSystem>().repaint(editor);
}

void frmHardware::rebuild() {
  if (ready_) cboModel.setText(makeModel());
}

void frmHardware::showNumber() {
  lastPartNumber_ = numberOfChoices();
  cboModel.setText(lastPartNumber_);
}

// The number can be chosen but not typed.
void frmHardware::cboModel_Change() {
  if (cboModel.text() != lastPartNumber_) cboModel.setText(lastPartNumber_);
}

void frmHardware::cboModel_Click() {
  if (loading_) return;
  DeviceState.ModelIndex = cboModel.listIndex();
  lastPartNumber_ = BaseModel = cboModel.list(cboModel.listIndex());
  const std::int32_t code = familyCode(BaseModel);
  const std::string number = makeModel();
  chkMonitor_Click();
  cboModel.setText(number);
  setFamily(code);
}

void frmHardware::optOut_Click() {
  if (!keepNumber_) rebuild();
}

void frmHardware::lstOption_Click() {
  if (loading_) return;
  rebuild();
  txtAddress.setEnabled(lstOption.listIndex() != 0 && lstOption.listIndex() != 2);
}

// The three variants exclude each other. Each clears the others, whose own clicks clear it in turn, so that
// in the end it takes its state again.
void frmHardware::chkMonitor_Click() {
  const bool chosen = chkMonitor.ticked();
  chkSimpleMenu.setTicked(false);
  chkAlarmsOnly.setTicked(false);
  rebuild();
  const bool outputs = !chkMonitor.ticked() || namesRkw77(BaseModel);
  if (!outputs) {
    setTabsAvailable({tab::alarm1}, true);
    optOut[analogOutput].setValue(false);
    setTabsAvailable({tab::analog}, false);
  }
  for (OptionButton& option : std::span(optOut).first<7>()) option.setEnabled(outputs);
  setTabsAvailable({tab::lbAlarm, tab::out1, tab::out2, tab::rampSoak}, outputs);
  chkMonitor.setTicked(chosen);
  rebuild();
}

void frmHardware::chkAlarmsOnly_Click() {
  const bool chosen = chkAlarmsOnly.ticked();
  chkSimpleMenu.setTicked(false);
  chkMonitor.setTicked(false);
  rebuild();
  if (chosen) setTabsAvailable({tab::lbAlarm, tab::out1, tab::out2, tab::rampSoak, tab::analog}, false);
  chkAlarmsOnly.setTicked(chosen);
}

void frmHardware::chkSimpleMenu_Click() {
  const bool chosen = chkSimpleMenu.ticked();
  chkMonitor.setTicked(false);
  chkAlarmsOnly.setTicked(false);
  rebuild();
  chkSimpleMenu.setTicked(chosen);
}

std::int16_t frmHardware::offerOptions(std::span<const std::string_view> rows) {
  const std::int16_t chosen = lstOption.listIndex();
  lstOption.clear();
  for (std::string_view row : rows) lstOption.addItem(row);
  return chosen;
}

void frmHardware::setFamily(std::int32_t code) {
  if (!ready_) return;
  family_ = code;
  DeviceState.IsRkw77 = asFlag(code <= 0);
  loading_ = true;
  if (onRkw77Line()) {
    offerRkw77Line();
  } else {
    offerFamily(code);
  }
  loading_ = false;
}

void frmHardware::offerRkw77Line() {
  for (CheckBox* variant : {&chkAlarmsOnly, &chkSimpleMenu}) {
    variant->setTicked(false);
    variant->setEnabled(true);
  }
  clearAndDisable(chkIsoAnalogOutput);
  optOut[3].setVisible(true);
  const int row = offerOptions(std::span(familyOptions).first<2>());
  lstOption.setListIndex(ofTwo(row));
  optOut[7].setVisible(true);
  for (CheckBox* variant : {&chkMonitor, &chkAlarmsOnly, &chkSimpleMenu}) {
    if (variant->enabled()) clearAndDisable(*variant);
  }
}

void frmHardware::offerFamily(std::int32_t code) {
  clearAndDisable(chkIsoAnalogOutput);
  optOut[3].setVisible(true);
  if (optOut[7].value()) {
    keepNumber_ = true;
    optOut[4].setValue(true);
    keepNumber_ = false;
  }
  optOut[7].setVisible(false);
  const bool few = code == withoutEthernet;
  const int row = offerOptions(std::span(familyOptions).first(few ? 2 : std::size(familyOptions)));
  if (few) {
    lstOption.setListIndex(ofTwo(row));
    optOut[3].setVisible(false);
  }
  lstOption.setListIndex(row);
  for (CheckBox* variant : {&chkMonitor, &chkAlarmsOnly, &chkSimpleMenu}) variant->setEnabled(true);
}

}  // namespace torvane
