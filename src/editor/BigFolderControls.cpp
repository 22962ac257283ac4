// SPDX-License-Identifier: MIT
// What can't be set where the controls of the main window are declared: tips of option buttons, first
// looks.
#include "editor/BigFolderControls.h"

#include <utility>

#include "platform/Program.h"

namespace torvane {

BigFolderControls::BigFolderControls() : Form("frmBigFolder", program::title) {
  optIDCode(0).setToolTip("No change at the front buttons asks for the ID code");
  optIDCode(1).setToolTip("A change of the set points asks for the ID code");
  optIDCode(2).setToolTip("Every change at the front buttons asks for the ID code");
  optAOutV.setToolTip("0 to 10 V");
  optAOutI.setToolTip("0 to 20 mA");
  optNoChange.setToolTip("A write leaves the unit's serial settings as they are");
  optRS232.setToolTip("A write sets the unit to RS-232");
  optRS485.setToolTip("A write sets the unit to RS-485 with the address below");

  describePictures();

  // As in the factory setup, so that showing that for the first time changes nothing and warns of nothing.
  optDpoint(1).setValue(true);
  txtRS485Address.setText("0001");

  // Dead bands stand on the alarm tabs only in the simple menu, and the program starts with the full one.
  fraAl1Deadband.setVisible(false);
  fraAl2Deadband.setVisible(false);
}

// What a picture shows, for people who don't see it.
void BigFolderControls::describePictures() {
  const std::pair<Drawing*, const char*> words[] = {
      {&imgTC, "Wiring of a thermocouple"},
      {&imgRTD2Wire, "Wiring of an RTD of 100 ohms with 2 wires"},
      {&imgRTD3Wire, "Wiring of an RTD of 100 ohms with 3 wires"},
      {&imgRTD4Wire, "Wiring of an RTD of 100 ohms with 4 wires"},
      {&imgRTD5002Wires, "Wiring of an RTD of 500 ohms with 2 wires"},
      {&imgRTD5003Wires, "Wiring of an RTD of 500 ohms with 3 wires"},
      {&imgRTD5004Wires, "Wiring of an RTD of 500 ohms with 4 wires"},
      {&imgRTD1K2Wires, "Wiring of an RTD of 1000 ohms with 2 wires"},
      {&imgRTD1K3Wires, "Wiring of an RTD of 1000 ohms with 3 wires"},
      {&imgRTD1K4Wires, "Wiring of an RTD of 1000 ohms with 4 wires"},
      {&imgProc100m, "Wiring of a process signal of 0 to 100 millivolts"},
      {&imgProcV, "Wiring of a process signal in volts"},
      {&imgProcI, "Wiring of a process signal of 0 to 20 milliamps"},
      {&imgLK_TC, "Larkspur: wiring of a thermocouple"},
      {&imgLK_RTD2Wire, "Larkspur: wiring of an RTD of 100 ohms with 2 wires"},
      {&imgLK_RTD3Wire, "Larkspur: wiring of an RTD of 100 ohms with 3 wires"},
      {&imgLK_RTD4Wire, "Larkspur: wiring of an RTD of 100 ohms with 4 wires"},
      {&imgLK_RTD5002Wires, "Larkspur: wiring of an RTD of 500 ohms with 2 wires"},
      {&imgLK_RTD5003Wires, "Larkspur: wiring of an RTD of 500 ohms with 3 wires"},
      {&imgLK_RTD5004Wires, "Larkspur: wiring of an RTD of 500 ohms with 4 wires"},
      {&imgLK_RTD1K2Wires, "Larkspur: wiring of an RTD of 1000 ohms with 2 wires"},
      {&imgLK_RTD1K3Wires, "Larkspur: wiring of an RTD of 1000 ohms with 3 wires"},
      {&imgLK_RTD1K4Wires, "Larkspur: wiring of an RTD of 1000 ohms with 4 wires"},
      {&imgLK_Proc100m, "Larkspur: wiring of a process signal of 0 to 100 millivolts"},
      {&imgLK_ProcV, "Larkspur: wiring of a process signal in volts"},
      {&imgLK_ProcI, "Larkspur: wiring of a process signal of 0 to 20 milliamps"},
      {&imgLK_switchTC, "Larkspur: switches for a thermocouple"},
      {&imgLK_switchRTD100, "Larkspur: switches for an RTD of 100 ohms"},
      {&imgLK_switchRTD500_1k, "Larkspur: switches for an RTD of 500 or 1000 ohms"},
      {&imgLK_switch100mv, "Larkspur: switches for 0 to 100 millivolts"},
      {&imgLK_switch1V, "Larkspur: switches for 0 to 1 volt"},
      {&imgLK_switch10V, "Larkspur: switches for 0 to 10 volts"},
      {&imgLK_switch20ma, "Larkspur: switches for 0 to 20 milliamps"},
      {&picProcess, "The set point rises for the ramp time and is held for the soak time"},
  };
  for (const auto& [picture, text] : words) picture->setToolTip(text);
}

}  // namespace torvane
