// SPDX-License-Identifier: MIT
// The preferences.
#include "dialogs/frmPreferences.h"

#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/KeptCopies.h"

namespace torvane {

frmPreferences::frmPreferences() : Form("frmPreferences", "Preferences") {
  chkWarnEn.onClick = [this] { Global.WarningsOff = asFlag(chkWarnEn.value() == 0); };
  chkReset.onClick = [this] { Global.ResetAfterWrite = asFlag(chkReset.value() != 0); };
  chkKeep.onClick = [this] { setKeepsCopies(chkKeep.value() != 0); };
  cmdOk.onClick = [this] { hide(); };
}

void frmPreferences::Form_Load() {
  centre();
  chkWarnEn.setValue(warnsOfEntries() ? 1 : 0);
  chkReset.setValue(resetsAfterWrite() ? 1 : 0);
  if (keepsCopies()) chkKeep.setValue(1);
}

}  // namespace torvane
