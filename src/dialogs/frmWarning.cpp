// SPDX-License-Identifier: MIT
// The warning that an entry has been repaired.
#include "dialogs/frmWarning.h"

#include "core/Global.h"
#include "core/Model.h"

namespace torvane {

frmWarning::frmWarning() : Form("frmWarning", "Warning...") {
  chkWarning.onClick = [this] { Global.WarningsOff = asFlag(!chkWarning.ticked()); };
  cmdOk.onClick = [this] { hide(); };
}

void frmWarning::Form_Load() {
  lblWarning.setCaption(Global.WarningText);
  lblReason.setCaption(Global.WarningReason);
  chkWarning.setTicked(warnsOfEntries());
  centre();  // with the room that the words need
}

}  // namespace torvane
