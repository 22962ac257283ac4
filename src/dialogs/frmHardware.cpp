// SPDX-License-Identifier: MIT
// The hardware dialog: how it comes up, and what OK and Cancel do.
#include "dialogs/frmHardware.h"

#include <algorithm>
#include <cmath>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/PartNumber.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr double highestAddress = 199;
constexpr int rkw77Row = 0;    // "Rkw77[case]"
constexpr int defaultRow = 2;  // "Tv[8,16,32]"
constexpr std::int32_t rkw77Family = 0;

// Any text as an address; what can't be a number at all is 1.
double addressOf(const std::string& text) {
  double address = 1;
  attempt([&] { address = std::trunc(std::abs(Val(text))); });
  return std::min(address, highestAddress);
}

// The outputs of the record in the order of their buttons.
std::array<std::int16_t, 8> recordedOutputs() {
  const OutputFit& one = Hardware.Out1;
  const OutputFit& two = Hardware.Out2;
  return {one.SSR, one.Relay, one.Pulse, one.Analog, two.SSR, two.Relay, two.Pulse, two.None};
}

}  // namespace

frmHardware::Unit frmHardware::Unit::now() {
  return {Hardware.ModelNumber, Memo[rec::menuKind].extra, Memo[rec::monitorOnly].value, Hardware.BusMode,
          recordedOutputs()};
}

frmHardware::frmHardware() : Form("frmHardware", "Hardware Setup") {
  cboModel.editable = true;
  cboModel.setItems(listedModels());
  chkIsoAnalogOutput.setEnabled(false);
  cboModel.onClick = cboModel.onChosenAgain = [this] { cboModel_Click(); };
  cboModel.onChange = [this] { cboModel_Change(); };
  chkMonitor.onClick = [this] { chkMonitor_Click(); };
  chkAlarmsOnly.onClick = [this] { chkAlarmsOnly_Click(); };
  chkSimpleMenu.onClick = [this] { chkSimpleMenu_Click(); };
  for (OptionButton& option : optOut) option.onClick = [this] { optOut_Click(); };
  lstOption.onClick = [this] { lstOption_Click(); };
  txtAddress.onKeyPress = txtAddress.onValidate = [this] { txtAddress_Validate(); };
  cmdOk.onClick = [this] { cmdOk_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmHardware::Form_Load() {
  loading_ = true;
  family_ = DeviceState.DeviceClass;
  loadedFor_ = Unit::now();
  try {
    showUnit();
    centre();
    showOutputs();
    lstOption.setListIndex(Hardware.BusMode);
    selectListedModel();
    showAddress();
    writeDescription();
    showModel();
  } catch (const RuntimeError& error) {
    messageBox("error occurred : (" + numberText(std::int32_t{error.number}) + ")");
  }
  ready_ = true;
  showNumber();
  loading_ = false;
}

void frmHardware::showUnit() {
  chkAlarmsOnly.setTicked(setupHasMenu(menu::alarmsOnly));
  chkSimpleMenu.setTicked(setupHasMenu(menu::simple));
  optOut[7].setVisible(false);
  if (DeviceState.DeviceClass >= 0) DeviceState.ClassSeen = True;
  if (DeviceState.DeviceClass == 0) {
    optOut[7].setVisible(true);
    for (CheckBox* variant : {&chkAlarmsOnly, &chkMonitor, &chkSimpleMenu}) {
      variant->setEnabled(false);
      variant->setTicked(false);
    }
    lstOption.setListIndex(offerOptions(rkw77Options));
  }
  if (DeviceState.AnalogFound != False) optOut[3].setValue(true);
  tickMonitor();
}

void frmHardware::tickMonitor() { chkMonitor.setValue(Memo[rec::monitorOnly].value); }

// An output that the family hasn't got can't stay chosen where nobody sees it.
void frmHardware::showOutputs() {
  const auto fits = recordedOutputs();
  for (std::size_t output = 0; output < optOut.size(); ++output) {
    optOut[output].setValue(fits[output] != False);
  }
  if (optOut[7].value() && !(optOut[7].enabled() && optOut[7].visible())) optOut[4].setValue(true);
}

void frmHardware::showAddress() {
  txtAddress.setText(formatNumber(static_cast<double>(Hardware.BusAddress), "0000"));
  txtAddress.setEnabled(lstOption.listIndex() != 0 && lstOption.listIndex() != 2);
}

void frmHardware::writeDescription() {
  lblDescription.setCaption(
      "Please select the options that your meter supports and verify that the model number displayed matches "
      "your unit's.");
}

// The row that the part number names wins over the one remembered, which a file knows nothing of.
void frmHardware::showModel() {
  ready_ = true;
  const int named = cboModel.listIndex();
  if (DeviceState.ModelIndex >= 0) {
    if (named < 0) cboModel.setListIndex(DeviceState.ModelIndex);
    cboModel.setText(makeModel());
  }
  tickMonitor();
  if (DeviceState.DeviceClass < 0) showDefaultModel(named);
}

// Where nobody knows the unit the default is shown, unless the part number names a model of the present line.
void frmHardware::showDefaultModel(int named) {
  const bool ofThisLine = (familyCode(cboModel.list(named)) <= 0) == (onRkw77Line());
  if (named < 0 || !ofThisLine) cboModel.setListIndex(defaultRow);
  if (named >= 0) BaseModel = cboModel.list(cboModel.listIndex());
  family_ = familyCode(cboModel.list(cboModel.listIndex()));
}

void frmHardware::selectListedModel() {
  const int row = listedModelRow(cboModel.items(), Hardware.ModelNumber);
  if (row < 0) return;
  cboModel.setListIndex(row);
  BaseModel = cboModel.list(row);
}

bool frmHardware::isOfThisUnit() const { return Unit::now() == loadedFor_; }

void frmHardware::showFactoryFit() {
  ready_ = false;
  showRow(defaultRow);
  optOut[0].setValue(true);
  optOut[4].setValue(true);
  lstOption.setListIndex(0);
  txtAddress.setEnabled(false);
  ready_ = true;
  showNumber();
}

void frmHardware::Form_Activate() {
  beforeShowing_ = {DeviceState.IsRkw77, DeviceState.ModelIndex, BaseModel};
  settleModel();
}

// Model, family and IsRkw77 speak of one unit. A name that no model has, as a file may leave one behind,
// gives way to the default.
void frmHardware::settleModel() {
  const bool rkw77 = isRkw77Unit();
  const bool listed = std::ranges::find(cboModel.items(), BaseModel) != cboModel.items().end();
  const bool nobodyKnows = DeviceState.DeviceClass < 0 && !namesListedModel();
  if (!listed || nobodyKnows || namesRkw77(BaseModel) != rkw77) showRow(rkw77 ? rkw77Row : defaultRow);
  if (cboModel.listIndex() < 0) showRow(listedModelRow(cboModel.items(), BaseModel));
  if (DeviceState.DeviceClass >= 0) family_ = DeviceState.DeviceClass;
  if (optOut[7].visible() != rkw77) setFamily(familyCode(BaseModel));
  if ((family_ == rkw77Family) != rkw77 || family_ < 0) family_ = familyCode(BaseModel);
  DeviceState.IsRkw77 = asFlag(rkw77);
  showNumber();
}

// A user sees the model and answers for it. Where nobody looks, the unit is what the run before took it for:
// IsRkw77 tells it, while the class may still be that of the setup before.
bool frmHardware::isRkw77Unit() const {
  if (!visible()) return onRkw77Line();
  return namesListedModel() ? namesRkw77(BaseModel) : DeviceState.DeviceClass == rkw77Family;
}

bool frmHardware::namesListedModel() const {
  return listedModelRow(cboModel.items(), Hardware.ModelNumber) >= 0;
}

void frmHardware::showRow(int row) {
  loading_ = true;
  cboModel.setListIndex(row);
  BaseModel = cboModel.list(row);
  loading_ = false;
}

bool frmHardware::Form_QueryUnload() {
  cmdCancel_Click();
  return true;
}

void frmHardware::txtAddress_Validate() {
  txtAddress.setText(formatNumber(addressOf(txtAddress.text()), "0000"));
}

void frmHardware::cmdOk_Click() {
  if (!visible()) settleModel();
  takeOutputs();
  Hardware.BusMode = lstOption.listIndex();
  Hardware.ModelNumber = cboModel.text();
  Hardware.BusAddress = toInt16(addressOf(txtAddress.text()));
  takeKind();
  Global.DeviceSpecified = True;
  form<frmBigFolder>().lblStatus.setCaption(lstOption.list(lstOption.listIndex()));
  Memo[rec::monitorOnly].value = chkMonitor.value();
  Memo[rec::menuKind].extra = toInt16(DeviceState.MenuKind);
  ready_ = false;
  hide();
}

void frmHardware::takeOutputs() const {
  const auto chosen = [this](std::size_t output) { return asFlag(optOut[output].value()); };
  Hardware.Out1.SSR = chosen(0);
  Hardware.Out1.Relay = chosen(1);
  Hardware.Out1.Pulse = chosen(2);
  Hardware.Out1.Analog = chosen(3);
  Hardware.Out2.SSR = chosen(4);
  Hardware.Out2.Relay = chosen(5);
  Hardware.Out2.Pulse = chosen(6);
  Hardware.Out2.None = chosen(7);
}

void frmHardware::takeKind() const {
  DeviceState.MenuKind = menu::full;
  DeviceState.DeviceClass = family_;
  if (chkAlarmsOnly.ticked()) DeviceState.MenuKind = menu::alarmsOnly;
  if (chkSimpleMenu.ticked()) DeviceState.MenuKind = menu::simple;
}

// The model stays the old one; what the choices have done to the main window stays as well.
void frmHardware::cmdCancel_Click() {
  DeviceState.IsRkw77 = beforeShowing_.isRkw77;
  DeviceState.ModelIndex = beforeShowing_.modelIndex;
  BaseModel = beforeShowing_.baseModel;
  hide();
  ready_ = false;
}

}  // namespace torvane
