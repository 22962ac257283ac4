// SPDX-License-Identifier: MIT
// Search in the setup.
#include "dialogs/frmSearch.h"

#include "editor/SetupSearch.h"
#include "editor/frmBigFolder.h"

namespace torvane {

frmSearch::frmSearch() : Form("frmSearch", "Search") {
  txtSearch.onChange = [this] { search(); };
  txtSearch.onKeyPress = cmdGo.onClick = [this] { cmdGo_Click(); };
  cmdClose.onClick = [this] { unload(); };
  cmdGo.setEnabled(false);
}

void frmSearch::Form_Load() { centre(); }

void frmSearch::search() {
  found_.clear();
  lstFound.clear();
  for (const FoundBox& each : searchSetup(form<frmBigFolder>(), txtSearch.text())) {
    found_.push_back({each.control, each.tab});
    lstFound.addItem(each.line);
  }
  if (!found_.empty()) lstFound.setListIndex(0);
  cmdGo.setEnabled(!found_.empty());
}

void frmSearch::cmdGo_Click() {
  if (lstFound.listIndex() < 0) return;
  chosen = found_[static_cast<std::size_t>(lstFound.listIndex())];
  hide();
}

}  // namespace torvane
