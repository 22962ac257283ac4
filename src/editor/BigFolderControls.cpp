// SPDX-License-Identifier: MIT
// What the controls of the main window can't be told where they are declared: tips of option buttons, first
// looks.
#include "editor/BigFolderControls.h"

#include "core/Program.h"

BigFolderControls::BigFolderControls() : Form("frmBigFolder", program::title) {
  optIDCode(0).setToolTip("No change at the front buttons asks for the ID code");
  optIDCode(1).setToolTip("A change of the setpoints asks for the ID code");
  optIDCode(2).setToolTip("Every change at the front buttons asks for the ID code");
  optAOutV.setToolTip("0 to 10 V");
  optAOutI.setToolTip("0 to 20 mA");
  optNoChange.setToolTip("A write leaves the unit's serial settings as they are");
  optRS232.setToolTip("A write sets the unit to RS-232");
  optRS485.setToolTip("A write sets the unit to RS-485 with the address below");

  // As in the factory setup, so that showing that for the first time changes nothing and warns of nothing.
  optDpoint(1).setValue(true);
  txtRS485Address.setText("0001");

  // Dead bands stand on the alarm tabs only in the simple menu, and the program starts with the full one.
  fraAl1Deadband.setVisible(false);
  fraAl2Deadband.setVisible(false);
}
