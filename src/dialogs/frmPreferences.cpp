// SPDX-License-Identifier: MIT
// The preferences.
#include "dialogs/frmPreferences.h"

#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/KeptCopies.h"

namespace torvane {

frmPreferences::frmPreferences() : Form("frmPreferences", "Preferences") {
  chkWarnEn.onClick = [this] { Global.WarningsOff = asFlag(!chkWarnEn.ticked()); };
  chkReset.onClick = [this] { Global.ResetAfterWrite = asFlag(chkReset.ticked()); };
  chkKeep.onClick = [this] { setKeepsCopies(chkKeep.ticked()); };
  cmdOk.onClick = [this] { hide(); };
}

void frmPreferences::Form_Load() {
  centre();
  chkWarnEn.setTicked(warnsOfEntries());
  chkReset.setTicked(resetsAfterWrite());
  chkKeep.setTicked(keepsCopies());
}

}  // namespace torvane
