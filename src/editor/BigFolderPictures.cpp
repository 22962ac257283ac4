// SPDX-License-Identifier: MIT
// Which picture explains the wiring of the chosen input.
#include "core/Model.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

enum : int { millivolts = 0, oneVolt = 1, milliamps = 3 };

void showOne(std::initializer_list<Drawing*> family, const Drawing* chosen) {
  for (Drawing* drawing : family) drawing->setVisible(chosen != nullptr && drawing == chosen);
}

// 2, 3 or 4 wires.
template <class Choices>
auto byWires(const ComboBox& wires, const Choices& choices) {
  const int index = wires.listIndex();
  return choices[index == 0 ? 0 : index == 1 ? 1 : 2];
}

}  // namespace

void frmBigFolder::doInputImage() {
  Drawing* const rtd[][3] = {
      {&imgRTD2Wire, &imgRTD3Wire, &imgRTD4Wire},
      {&imgRTD5002Wires, &imgRTD5003Wires, &imgRTD5004Wires},
      {&imgRTD1K2Wires, &imgRTD1K3Wires, &imgRTD1K4Wires},
  };
  Drawing* chosen = nullptr;
  if (optInType(0).value()) chosen = &imgTC;
  if (optInType(1).value()) {
    const int value = cboRTDValue.listIndex();
    chosen = byWires(cboRTDWires, rtd[value == 0 ? 0 : value == 1 ? 1 : 2]);
  }
  if (optInType(2).value()) {
    const int range = lstProc.listIndex();
    chosen = range == millivolts ? &imgProc100m : range == milliamps ? &imgProcI : &imgProcV;
  }
  showOne(
      {&imgTC, &imgRTD2Wire, &imgRTD3Wire, &imgRTD4Wire, &imgRTD5002Wires, &imgRTD5003Wires, &imgRTD5004Wires,
       &imgRTD1K2Wires, &imgRTD1K3Wires, &imgRTD1K4Wires, &imgProc100m, &imgProcV, &imgProcI},
      nullptr);
  doLKImage();
  if (chosen != nullptr) chosen->setVisible(true);
}

void frmBigFolder::doLKImage() {
  Drawing* const rtd[][3] = {
      {&imgLK_RTD2Wire, &imgLK_RTD3Wire, &imgLK_RTD4Wire},
      {&imgLK_RTD5002Wires, &imgLK_RTD5003Wires, &imgLK_RTD5004Wires},
      {&imgLK_RTD1K2Wires, &imgLK_RTD1K3Wires, &imgLK_RTD1K4Wires},
  };
  const Drawing* wiring = nullptr;
  const Drawing* jumper = nullptr;
  if (optInType(0).value()) {
    wiring = &imgLK_TC;
    jumper = &imgLK_switchTC;
  }
  if (optInType(1).value()) {
    const int value = cboRTDValue.listIndex();
    wiring = byWires(cboRTDWires, rtd[value == 0 ? 0 : value == 1 ? 1 : 2]);
    jumper = value == 0 ? &imgLK_switchRTD100 : &imgLK_switchRTD500_1k;
  }
  if (optInType(2).value()) {
    const int range = lstProc.listIndex();
    wiring = range == millivolts ? &imgLK_Proc100m : range == milliamps ? &imgLK_ProcI : &imgLK_ProcV;
    jumper = range == millivolts  ? &imgLK_switch100mv
             : range == milliamps ? &imgLK_switch20ma
             : range == oneVolt   ? &imgLK_switch1V
                                  : &imgLK_switch10V;
  }
  const bool onShow = tabBig.tab() == tab::inputType && onRkw77Line();
  showOne({&imgLK_TC, &imgLK_RTD2Wire, &imgLK_RTD3Wire, &imgLK_RTD4Wire, &imgLK_RTD5002Wires,
           &imgLK_RTD5003Wires, &imgLK_RTD5004Wires, &imgLK_RTD1K2Wires, &imgLK_RTD1K3Wires,
           &imgLK_RTD1K4Wires, &imgLK_Proc100m, &imgLK_ProcV, &imgLK_ProcI},
          onShow ? wiring : nullptr);
  showOne({&imgLK_switchTC, &imgLK_switchRTD100, &imgLK_switchRTD500_1k, &imgLK_switch100mv, &imgLK_switch1V,
           &imgLK_switch10V, &imgLK_switch20ma},
          onShow ? jumper : nullptr);
}

}  // namespace torvane
