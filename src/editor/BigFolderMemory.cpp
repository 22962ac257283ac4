// SPDX-License-Identifier: MIT
// The records and their controls, and how they are copied into each other.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr const char* tenthsPicture = "000.0";
constexpr const char* fourDigitsPicture = "0000";

}  // namespace

// In the order in which a tab is shown: options run their handlers, and these arrange other controls.
// The protection level is shown with tab 0 and stored with tab 1. A dead band has two boxes, on the tab of
// the output and on that of the alarm: both are shown with the output, and in the simple menu, which has no
// tab of the outputs, the alarm's box is shown and stored with the alarm and wins over its twin.
std::vector<frmBigFolder::Field> frmBigFolder::fieldTable() {
  using enum Copy;
  using enum Menu;
  // clang-format off
  return {
      // shown, stored, record, copy, control
      {0, 1, rec::optIDCode,     flag, &optIDCode(0)},
      {0, 1, rec::optIDCode + 1, flag, &optIDCode(1)},
      {0, 1, rec::optIDCode + 2, flag, &optIDCode(2)},
      {0, 0, rec::txtIDCode, fourDigits, &txtIDCode},

      {1, 1, rec::txtSp1, reading, &txtSp1},
      {1, 1, rec::txtSp2, reading, &txtSp2},
      {1, 1, rec::cboNormalColor, extra, &cboNormalColor},
      {1, 1, rec::chkSPDeviation, value, &chkSPDeviation},

      {2, 2, rec::optInType,     flag, &optInType(0)},
      {2, 2, rec::optInType + 1, flag, &optInType(1)},
      {2, 2, rec::optInType + 2, flag, &optInType(2)},
      {2, 2, rec::lstTCTypes, value, &lstTCTypes},
      {2, 2, rec::cboRTDValue, value, &cboRTDValue},
      {2, 2, rec::cboRTDCurves, value, &cboRTDCurves},
      {2, 2, rec::cboRTDWires, value, &cboRTDWires},
      {2, 2, rec::lstProc, value, &lstProc},

      {3, 3, rec::optDpoint,     flag, &optDpoint(0)},
      {3, 3, rec::optDpoint + 1, flag, &optDpoint(1)},
      {3, 3, rec::optDpoint + 2, flag, &optDpoint(2)},
      {3, 3, rec::optDpoint + 3, flag, &optDpoint(3)},
      {3, 3, rec::cboTUnit, value, &cboTUnit},
      {3, 3, rec::lstFiltConst, value, &lstFiltConst},
      {3, 3, rec::txtIn1Vi, plain, &txtIn1Vi},
      {3, 3, rec::txtIn2Vi, plain, &txtIn2Vi},
      {3, 3, rec::txtIn1, fourDigits, &txtIn1},
      {3, 3, rec::txtRd1, fourDigits, &txtRd1},
      {3, 3, rec::txtIn2, fourDigits, &txtIn2},
      {3, 3, rec::txtRd2, fourDigits, &txtRd2},

      {4, 4, rec::cboAl1Ctrl, value, &cboAl1Ctrl},
      {4, 4, rec::cboAl1Latch, value, &cboAl1Latch},
      {4, 4, rec::cboAl1Closure, value, &cboAl1Closure},
      {4, 4, rec::cboAl1Setup, value, &cboAl1Setup},
      {4, 4, rec::chkAl1Enabled, value, &chkAl1Enabled},
      {4, 4, rec::chkAl1AutoPOn, value, &chkAl1AutoPOn},
      {4, 4, rec::cboAl1WhenActiveColor, extra, &cboAl1WhenActiveColor},
      {4, 4, rec::txtAl1HiSp, reading, &txtAl1HiSp},
      {4, 4, rec::txtAl1LoSp, reading, &txtAl1LoSp},
      {4, 4, rec::txtOut1DeadBand, reading, &txtAl1Deadband, inSimpleMenu},

      {5, 5, rec::cboAl2Ctrl, value, &cboAl2Ctrl},
      {5, 5, rec::cboAl2Latch, value, &cboAl2Latch},
      {5, 5, rec::cboAl2Closure, value, &cboAl2Closure},
      {5, 5, rec::cboAl2Setup, value, &cboAl2Setup},
      {5, 5, rec::chkAl2Enabled, value, &chkAl2Enabled},
      {5, 5, rec::cboAl2WhenActiveColor, extra, &cboAl2WhenActiveColor},
      {5, 5, rec::txtAl2HiSp, reading, &txtAl2HiSp},
      {5, 5, rec::txtAl2LoSp, reading, &txtAl2LoSp},
      {5, 5, rec::txtOut2DeadBand, reading, &txtAl2Deadband, inSimpleMenu},

      {6, 6, rec::chkLBAEnabled, value, &chkLBAEnabled},
      {6, 6, rec::chkIDEnabled, value, &chkIDEnabled},
      {6, 6, rec::txtLBATime, plain, &txtLBATime},
      {6, 6, rec::txtTAdjust, reading, &txtTAdjust},

      {7, 7, rec::chkOut1Self, value, &chkOut1Self},
      {7, 7, rec::chkOut1AutoPID, value, &chkOut1AutoPID},
      {7, 7, rec::chkOut1Anti, value, &chkOut1Anti},
      {7, 7, rec::chkOut1Start, value, &chkOut1Start},
      {7, 7, rec::HSOut1Low, positionText, &HSOut1Low},
      {7, 7, rec::HSOut1High, positionText, &HSOut1High},
      {7, 7, rec::HSOut1CycleT, position, &HSOut1CycleT},
      {7, 7, rec::lstOut1DamFactor, value, &lstOut1DamFactor},
      {7, 7, rec::cboOut1Ctrl, value, &cboOut1Ctrl},
      {7, 7, rec::cboOut1Action, value, &cboOut1Action},
      {7, notStored, rec::txtOut1DeadBand, reading, &txtAl1Deadband},
      {7, 7, rec::txtOut1DeadBand, reading, &txtOut1DeadBand},
      {notShown, 7, rec::txtOut1DeadBand, reading, &txtAl1Deadband, inSimpleMenu},
      {7, 7, rec::txtOut1PB, reading, &txtOut1PB},
      {7, 7, rec::txtOut1Rate, tenths, &txtOut1Rate},
      {7, 7, rec::txtOut1Reset, plain, &txtOut1Reset},
      {7, 7, rec::opt020mA, flag, &opt020mA},
      {7, 7, rec::opt420mA, flag, &opt420mA},

      {8, 8, rec::chkOut2AutoPID, value, &chkOut2AutoPID},
      {8, 8, rec::cboOut2Ctrl, value, &cboOut2Ctrl},
      {8, 8, rec::cboOut2Action, value, &cboOut2Action},
      {8, 8, rec::HSOut2CycleT, position, &HSOut2CycleT},
      {8, notStored, rec::txtOut2DeadBand, reading, &txtAl2Deadband},
      {8, 8, rec::txtOut2DeadBand, reading, &txtOut2DeadBand},
      {notShown, 8, rec::txtOut2DeadBand, reading, &txtAl2Deadband, inSimpleMenu},
      {8, 8, rec::txtOut2PB, reading, &txtOut2PB},

      {9, 9, rec::chkRampEn, value, &chkRampEn},
      {9, 9, rec::chkSoakEn, value, &chkSoakEn},
      {9, 9, rec::txtRampT, plain, &txtRampT},
      {9, 9, rec::txtSoakT, plain, &txtSoakT},

      {10, 10, rec::optAOutV, flag, &optAOutV},
      {10, 10, rec::optAOutI, flag, &optAOutI},
      {10, 10, rec::txtAOutRd1, plain, &txtAOutRd1},
      {10, 10, rec::txtAOutOut1, plain, &txtAOutOut1},
      {10, 10, rec::txtAOutRd2, plain, &txtAOutRd2},
      {10, 10, rec::txtAOutOut2, plain, &txtAOutOut2},
      {10, 10, rec::chkAnalogOutputEnabled, value, &chkAnalogOutputEnabled},

      {11, 11, rec::cboCommPort, value, &cboCommPort},
      {11, 11, rec::cboBaud, value, &cboBaud},
      {11, 11, rec::cboParity, value, &cboParity},
      {11, 11, rec::cboData, value, &cboData},
      {11, 11, rec::cboStop, value, &cboStop},
      {11, 11, rec::optRS232, flag, &optRS232},
      {11, 11, rec::optRS485, flag, &optRS485},
      {11, 11, rec::txtRS485Address, plain, &txtRS485Address},
      {11, 11, rec::optNoChange, flag, &optNoChange},
      {11, 11, rec::optCommunicationMode,     flag, &optCommunicationMode(0)},
      {11, 11, rec::optCommunicationMode + 1, flag, &optCommunicationMode(1)},
      {11, 11, rec::txtTCPIPAddress, plain, &txtTCPIPAddress},
      {11, 11, rec::txtTCPPort, plain, &txtTCPPort},
  };
  // clang-format on
}

void frmBigFolder::loadMemo(std::int16_t tab) {
  for (const Field& field : fields_) {
    if (field.loadTab == tab && isInUse(field)) attempt([&] { load(field); });
  }
  if (tab == 2) attempt([this] { doInputImage(); });
  if (tab == 11) loadModelCopies();
}

void frmBigFolder::writeMemo(std::int16_t tab) {
  if (tab < 0 || tab >= tab::count) return;
  for (const Field& field : fields_) {
    if (field.storeTab == tab && isInUse(field)) store(field);
  }
  if (setupHasMenu(menu::simple)) alignDeadBands();
  if (tab == 11) storeModelCopies();
}

// The outputs' boxes are out of sight then; an older text in them must not win when the menu becomes the full
// one.
void frmBigFolder::alignDeadBands() {
  txtOut1DeadBand.setText(txtAl1Deadband.text());
  txtOut2DeadBand.setText(txtAl2Deadband.text());
}

bool frmBigFolder::isInUse(const Field& field) {
  return field.menu == Menu::any || setupHasMenu(menu::simple);
}

void frmBigFolder::reCover() {
  for (std::int16_t tab = 0; tab < tab::count; ++tab) writeMemo(tab);
}

std::string frmBigFolder::formDPt() const {
  if (optDpoint(0).value()) return "0000.";
  if (optDpoint(1).value()) return "000.0";
  if (optDpoint(2).value()) return "00.00";
  return "0.000";
}

void frmBigFolder::load(const Field& field) {
  const MemoField& record = Memo[field.record];
  if (field.copy == Copy::positionText && onRkw77Line()) return;
  if (auto* const* box = std::get_if<TextBox*>(&field.control)) {
    switch (field.copy) {
      case Copy::fourDigits:
        return (*box)->setText(formatText(record.text, fourDigitsPicture));
      case Copy::tenths:
        return (*box)->setText(formatText(record.text, tenthsPicture));
      case Copy::reading:
        return (*box)->setText(formatText(record.text, formDPt()));
      default:
        return (*box)->setText(record.text);
    }
  }
  if (auto* const* check = std::get_if<CheckBox*>(&field.control)) {
    // The ID code's box is checked each time the tab is shown, whatever the record holds.
    return (*check)->setValue(field.record == rec::chkIDEnabled ? 1 : record.value);
  }
  if (auto* const* option = std::get_if<OptionButton*>(&field.control)) {
    return (*option)->setValue(record.flag != False);
  }
  if (auto* const* list = std::get_if<ListControl*>(&field.control)) {
    return (*list)->setListIndex(field.copy == Copy::extra ? record.extra : record.value);
  }
  ScrollBar* bar = std::get<ScrollBar*>(field.control);
  bar->setValue(field.copy == Copy::positionText ? toInt16(Val(record.text)) : record.value);
}

void frmBigFolder::store(const Field& field, MemoField& record) const {
  if (auto* const* box = std::get_if<TextBox*>(&field.control)) {
    record.text = (*box)->text();
  } else if (auto* const* check = std::get_if<CheckBox*>(&field.control)) {
    record.value = (*check)->value();
  } else if (auto* const* option = std::get_if<OptionButton*>(&field.control)) {
    record.flag = asFlag((*option)->value());
  } else if (auto* const* list = std::get_if<ListControl*>(&field.control)) {
    (field.copy == Copy::extra ? record.extra : record.value) = (*list)->listIndex();
  } else if (field.copy == Copy::positionText) {
    record.text = numberText(std::int32_t{std::get<ScrollBar*>(field.control)->value()});
  } else {
    record.value = std::get<ScrollBar*>(field.control)->value();
  }
}

// The part of the model record that a .cfg file carries with tab 11. SpareLong goes out as text and comes in
// from extra: only a file ever sets that.
void frmBigFolder::loadModelCopies() {
  DeviceState.DeviceClass = Memo[rec::deviceClass].extra;
  DeviceState.IdFlagC = Memo[rec::idFlagC].extra;
  DeviceState.SpareLong = Memo[rec::spareLong].extra;
  DeviceState.MenuKind = Memo[rec::menuKind].extra;
}

void frmBigFolder::storeModelCopies() const {
  Memo[rec::deviceClass].extra = toInt16(DeviceState.DeviceClass);
  Memo[rec::idFlagC].extra = DeviceState.IdFlagC;
  Memo[rec::spareLong].text = numberText(DeviceState.SpareLong);
  Memo[rec::menuKind].extra = toInt16(DeviceState.MenuKind);
  Memo[rec::monitorOnly].extra = 0;
}

}  // namespace torvane
