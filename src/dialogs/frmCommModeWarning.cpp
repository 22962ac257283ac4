// SPDX-License-Identifier: MIT
// What a change of the unit's serial bus brings about.
#include "dialogs/frmCommModeWarning.h"

#include <string>

namespace torvane {

namespace {

constexpr const char* changeOfMode =
    "WARNING:  Once  communication has been established with the unit using the Connection Wizard "
    "button or the combination of Manual Setup and Hardware dialog box, the "
    " communication standard of the unit (RS-232 or RS-485) can be changed using the Communication "
    "Setup controls.  This change of the serial configuration will be sent to the unit during the Write to "
    "Serial Port operation and the change will take effect after hardware reset of the unit."
    " When no changes to the serial configuration of the unit are required, please select the Leave the Comm "
    "Protocol As Found, Do Not Change option. If the unit's  "
    "communication standard "
    "was RS-232 and it was switched to RS-485; a protocol converter box is needed to communicate with the "
    "unit."
    "  If the switch was from RS-485 to RS-232, the protocol converter box needs to be removed."
    "  When using the RS-485 communication standard, changing the address on this section will change the "
    "device address after Write to serial port and device hardware reset.";

constexpr std::size_t blanksBetween = 154;

constexpr const char* findTheMode =
    "In order to find the present communication standard of the unit using the front panel buttons, press "
    "the Menu button (leftmost button) until you see CNFG, press the Enter button once (rightmost button),  "
    "press the Menu button until you see COMM, press Enter button once, press the Menu button until you see "
    "bUS.F,  "
    "press the Enter button once"
    ", press the Menu button until you see StNd, press Enter button once, "
    "press the Up button (second from the left) to switch between RS-232 or RS-485 and finally press Enter "
    " to save changes.";

std::string warning() { return changeOfMode + std::string(blanksBetween, ' ') + findTheMode; }

}  // namespace

frmCommModeWarning::frmCommModeWarning() : Form("frmCommModeWarning", "Communication mode change warning") {
  aside = true;
  txtWarning.onChange = [this] { txtWarning.setText(warning()); };
  cmdCommWarning.onClick = [this] { unload(); };
}

void frmCommModeWarning::Form_Load() { txtWarning.setText(warning()); }

}  // namespace torvane
