// SPDX-License-Identifier: MIT
// The chooser in front of every read.
#include "dialogs/frmRead.h"

#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/RunHead.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/UnitRuns.h"
#include "dialogs/frmCompare.h"
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"
#include "platform/Files.h"
#include "protocol/frmSerial.h"

namespace torvane {

namespace {

// "oven.cfg in /home/me": the name is what people look for.
std::string withNameFirst(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  return slash == path.npos ? path : path.substr(slash + 1) + " in " + path.substr(0, slash);
}

}  // namespace

frmRead::frmRead() : Form("frmRead", "Read from...") {
  cmdFile.onClick = [this] { cmdFile_Click(); };
  cmdRecent.onClick = [this] { cmdRecent_Click(); };
  cmdSerial.onClick = [this] { cmdSerial_Click(); };
  cmdNetwork.onClick = cmdSerial.onClick;  // the way is chosen on the communication tab
  cmdCompare.onClick = [this] { cmdCompare_Click(); };
  cmdKeep.onClick = [] { cmdKeep_Click(); };
  cmdFiles.onClick = [] { cmdFiles_Click(); };
  OKButton.onClick = [this] { unload(); };
}

void frmRead::Form_Load() {
  centre();
  recent_ = recentFiles();
  for (const std::string& path : recent_) cboRecent.addItem(withNameFirst(path));
  fraRecent.setVisible(!recent_.empty());
  if (!recent_.empty()) cboRecent.setListIndex(0);
}

void frmRead::cmdFile_Click() { open(host<Files>().chooseFileToOpen(configFilter)); }

void frmRead::cmdRecent_Click() {
  if (cboRecent.listIndex() >= 0) open(recent_[static_cast<std::size_t>(cboRecent.listIndex())]);
}

void frmRead::open(const std::string& path) {
  if (!path.empty() && openConfiguration(path)) unload();
}

void frmRead::cmdSerial_Click() {
  if (!prepareRun()) return;
  const Replacement undoable("read");
  Global.AutoDetect = False;
  Global.ReadConfirmed = 1;
  auto& run = form<frmSerial>();
  run.readMode = True;
  run.showModal();
  Global.ReadConfirmed = 0;
  unload();
  fitToFoundUnit();
  form<frmBigFolder>().noteLosses();
}

void frmRead::cmdCompare_Click() {
  if (!prepareRun() || !compareUnit()) return;
  unload();
  writeUnit();
}

void frmRead::cmdKeep_Click() {
  if (prepareRun()) keepCopy();
}

void frmRead::cmdFiles_Click() {
  auto& window = form<frmCompare>();
  window.compareFiles();
  window.showModal();
  torvane::unload<frmCompare>();
}

}  // namespace torvane
