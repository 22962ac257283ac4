// SPDX-License-Identifier: MIT
// What the run buttons of both choosers have in common.
#include "dialogs/RunHead.h"

#include "core/Global.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"

void prepareRun() {
  form<frmBigFolder>().SaveCurrentTab();
  Global.DeviceSpecified = True;
}

void fitToFoundUnit() {
  auto& editor = form<frmBigFolder>();
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
}
