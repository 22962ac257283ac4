// SPDX-License-Identifier: MIT
// Moving between the tabs, and the row of commands.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/ShowHelp.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmWrite.h"
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"
#include "protocol/frmSerial.h"

namespace torvane {

namespace {

// The choosers offer the one channel that the communication tab has chosen.
template <class Chooser>
void offerChosenChannel(Chooser& chooser) {
  chooser.cmdNetwork.setEnabled(isChosen(rec::optCommunicationMode + 1));
  chooser.cmdSerial.setEnabled(overSerial());
}

}  // namespace

void frmBigFolder::wireTabs() {
  tabBig.onClick = [this](std::int16_t previousTab) { tabBig_Click(previousTab); };
  cmdHelp.onClick = [this] { cmdHelp_Click(); };
  cmdCnfg.onClick = [this] { cmdCnfg_Click(); };
  cmdOpen.onClick = [this] { cmdOpen_Click(); };
  cmdPref.onClick = [] { cmdPref_Click(); };
  cmdWrite.onClick = [this] { cmdWrite_Click(); };
  cmdReset.onClick = [this] { cmdReset_Click(); };
  cmdFactoryDefaults.onClick = [this] { cmdFactoryDefaults_Click(); };
  cmdPrev.onClick = [this] { cmdPrev_Click(); };
  cmdNext.onClick = [this] { cmdNext_Click(); };
  cmdQuit.onClick = [this] { cmdQuit_Click(); };
}

void frmBigFolder::tabBig_Click(std::int16_t previousTab) {
  writeMemo(previousTab);
  loadMemo(tabBig.tab());
  if (previousTab == tab::inputType) doLKImage();
  reForm();
}

void frmBigFolder::SaveCurrentTab() {
  if (tabBig.tab() == tab::comm) tabBig_Click(tab::comm);
}

void frmBigFolder::cmdReset_Click() { loadMemo(tabBig.tab()); }

void frmBigFolder::cmdNext_Click() { stepTab(1); }

void frmBigFolder::cmdPrev_Click() { stepTab(-1); }

// Stops at every tab that is present in the strip, also at one that is out of use.
void frmBigFolder::stepTab(int by) {
  int tab = tabBig.tab();
  do {
    tab = (tab + by + tabBig.tabs()) % tabBig.tabs();
  } while (!tabBig.page(static_cast<std::size_t>(tab)).present);
  tabBig.setTab(tab);
}

void frmBigFolder::cmdHelp_Click() { ShowHelp(1, ""); }

void frmBigFolder::cmdQuit_Click() {
  writeMemo(tabBig.tab());
  unload();
}

void frmBigFolder::cmdWrite_Click() {
  writeMemo(tabBig.tab());
  loadMemo(tab::comm);
  auto& chooser = form<frmWrite>();
  offerChosenChannel(chooser);
  chooser.showModal();
  torvane::unload<frmWrite>();
}

// Nothing warns while a read or a file changes fields.
void frmBigFolder::cmdOpen_Click() {
  const std::int16_t warningsOff = Global.WarningsOff;
  Global.WarningsOff = True;
  writeMemo(tabBig.tab());
  loadMemo(tab::comm);
  auto& chooser = form<frmRead>();
  offerChosenChannel(chooser);
  chooser.showModal();
  torvane::unload<frmSerial>();
  torvane::unload<frmRead>();
  Global.WarningsOff = warningsOff;
}

void frmBigFolder::cmdPref_Click() {
  form<frmPreferences>().showModal();
  torvane::unload<frmPreferences>();
}

void frmBigFolder::cmdFactoryDefaults_Click() {
  const Replacement undoable("defaults");
  initBigFolder();
  Global.DeviceSpecified = False;
  resetDeviceState();
  loadMemo(tab::out1);  // the analog output of a unit before it has forced its choice until now
  cboBaud.setListIndex(5);
  cboParity.setListIndex(1);
  cboData.setListIndex(0);
  cboStop.setListIndex(0);
  showFactoryFit();
}

// The dialog comes up to show it, and a dialog that comes up may take tabs out of use; here none changes.
void frmBigFolder::showFactoryFit() {
  std::vector<bool> inUse;
  inUse.reserve(static_cast<std::size_t>(tabBig.tabs()));
  for (int tab = 0; tab < tabBig.tabs(); ++tab) inUse.push_back(tabBig.tabAvailable(tab));
  torvane::unload<frmHardware>();  // one of an earlier unit may still be there
  form<frmHardware>().showFactoryFit();
  lblStatus.setCaption("RS-232");
  for (int tab = 0; tab < tabBig.tabs(); ++tab) {
    tabBig.setTabAvailable(tab, inUse[static_cast<std::size_t>(tab)]);
  }
}

}  // namespace torvane
