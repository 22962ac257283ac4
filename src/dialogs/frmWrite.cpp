// SPDX-License-Identifier: MIT
// The chooser in front of every write.
#include "dialogs/frmWrite.h"

#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/Report.h"
#include "dialogs/RunHead.h"
#include "dialogs/SetupFiles.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"
#include "protocol/frmSerial.h"

frmWrite::frmWrite() : Form("frmWrite", "Write to...") {
  cmdFile.onClick = [] { cmdFile_Click(); };
  cmdPrint.onClick = printReport;
  cmdSerial.onClick = [this] { cmdSerial_Click(); };
  cmdNetwork.onClick = cmdSerial.onClick;  // the way is chosen on the communication tab
  chkReset.onClick = [this] { Global.ResetAfterWrite = asFlag(chkReset.value() != 0); };
  cmdCancel.onClick = [this] { hide(); };
}

void frmWrite::Form_Load() {
  centre();
  showReset();
  showVerdict();
}

void frmWrite::Form_Activate() { showReset(); }

void frmWrite::showReset() { chkReset.setValue(Global.ResetAfterWrite != False ? 1 : 0); }

void frmWrite::showVerdict() {
  const Label& line = form<frmBigFolder>().lblVerdict;
  lblVerdict.setCaption(line.caption());
  lblVerdict.setMark(line.mark());
}

void frmWrite::cmdFile_Click() {
  const std::string path = host().chooseFileToSave(configFilter);
  if (!path.empty()) saveConfiguration(path);
}

void frmWrite::cmdSerial_Click() {
  auto& editor = form<frmBigFolder>();
  if (!prepareRun([&] { editor.writeMemo(editor.tabBig.tab()); })) return;
  Global.AutoDetect = False;
  auto& run = form<frmSerial>();
  run.readMode = False;
  Global.ReadConfirmed = 0;
  run.showModal();
  ::unload<frmSerial>();
  fitToFoundUnit();
}
