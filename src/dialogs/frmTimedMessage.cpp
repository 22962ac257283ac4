// SPDX-License-Identifier: MIT
// A notice that closes by itself.
#include "dialogs/frmTimedMessage.h"

namespace torvane {

frmTimedMessage::frmTimedMessage() : Form("frmTimedMessage", "Notification") {
  OKButton.onClick = [this] { unload(); };
  Timer1.onTimer = [this] { unload(); };
}

void frmTimedMessage::Form_Load() { centre(); }

void frmTimedMessage::Form_Activate() { Label1.setCaption(message); }

}  // namespace torvane
