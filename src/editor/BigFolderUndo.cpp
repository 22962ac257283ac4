// SPDX-License-Identifier: MIT
// Undo of the last replacement of the whole setup.
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

constexpr const char* nothingToUndo =
    "Brings back the setup before the last read, opened file, wizard or factory defaults";

std::string tipOf(const std::string& what) {
  return "Brings back the setup as it was before the " + what +
         ", the model and the tab too; what was changed since then goes. Nothing is sent to the unit";
}

}  // namespace

Replacement::Replacement(const char* what) : what_(what), before_(takeSnapshot(form<frmBigFolder>())) {}

Replacement::~Replacement() {
  if (!isLoaded<frmBigFolder>()) return;
  auto& editor = form<frmBigFolder>();
  if (takeSnapshot(editor) != before_) editor.offerUndo(what_, std::move(before_));
}

void frmBigFolder::wireUndo() {
  cmdUndo.onClick = [this] { cmdUndo_Click(); };
  withdrawUndo();
}

void frmBigFolder::offerUndo(const std::string& what, SetupSnapshot before) {
  undo_ = std::move(before);
  undoName_ = what;
  cmdUndo.setCaption("Undo " + what);
  cmdUndo.setToolTip(tipOf(what));
  cmdUndo.setEnabled(true);
}

void frmBigFolder::withdrawUndo() {
  undo_.reset();
  cmdUndo.setCaption("Undo");
  cmdUndo.setToolTip(nothingToUndo);
  cmdUndo.setEnabled(false);
}

void frmBigFolder::cmdUndo_Click() {
  if (!undo_) return;
  putBack(*this, *undo_);
  withdrawUndo();
  setNote("Undone: the tabs show the setup from before the " + undoName_, false);
}

}  // namespace torvane
