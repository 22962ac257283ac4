// SPDX-License-Identifier: MIT
// What the run buttons of both choosers have in common.
#include "dialogs/RunHead.h"

#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"

namespace torvane {

namespace {

void askForModel(const Handler& afterDialog) {
  messageBox("Warning: please specify your device\rbefore continuing.\rUse Setup button from main screen...",
             "", Icon::information);
  form<frmHardware>().showModal();
  if (afterDialog) afterDialog();
  unload<frmHardware>();
  form<frmBigFolder>().followMenu();  // before a tab is left and committed: the menu may be another
  form<frmBigFolder>().leaveUnavailableTab();
}

}  // namespace

bool prepareRun(const Handler& afterDialog) {
  form<frmBigFolder>().SaveCurrentTab();
  if (!isModelFixed()) askForModel(afterDialog);
  return isModelFixed();
}

void fitToFoundUnit() {
  auto& editor = form<frmBigFolder>();
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
}

}  // namespace torvane
