// SPDX-License-Identifier: MIT
// The keys that act anywhere in the main window.
#include "dialogs/Report.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmSearch.h"
#include "editor/frmBigFolder.h"

namespace torvane {

void frmBigFolder::wireKeys() {
  shortcuts = {{"Ctrl+Tab", [this] { stepToTabInUse(1); }},
               {"Ctrl+PgDown", [this] { stepToTabInUse(1); }},
               {"Ctrl+Shift+Tab", [this] { stepToTabInUse(-1); }},
               {"Ctrl+PgUp", [this] { stepToTabInUse(-1); }},
               {"Esc", [] { torvane::unload<frmCommModeWarning>(); }},  // which takes no keys itself
               {"Ctrl+F", [this] { goToSetting(); }},
               {"Ctrl+O", [this] { cmdOpen.userClicked(); }},
               {"Ctrl+S", [] { saveConfigurationAs(); }},
               {"Ctrl+P", [this] {
                  writeMemo(tabBig.tab());
                  printReport();
                }}};
}

// As a click does, which can't choose a tab that is out of use. Tab 0 is always in use.
void frmBigFolder::stepToTabInUse(int by) {
  int tab = tabBig.tab();
  do {
    tab = (tab + by + tabBig.tabs()) % tabBig.tabs();
  } while (!tabBig.tabAvailable(tab));
  tabBig.userClicked(tab);
}

// The keyboard goes there when the dialog has gone.
void frmBigFolder::goToSetting() {
  form<frmSearch>().showModal();
  if (!isLoaded<frmSearch>()) return;
  const auto chosen = form<frmSearch>().chosen;
  torvane::unload<frmSearch>();
  if (!chosen) return;
  tabBig.userClicked(chosen->tab);
  chosen->control->focus();
}

}  // namespace torvane
