// SPDX-License-Identifier: MIT
// The chooser in front of every write.
#include "dialogs/frmWrite.h"

#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/Report.h"
#include "dialogs/RunHead.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/UnitRuns.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

bool preparesWrite() {
  auto& editor = form<frmBigFolder>();
  return prepareRun([&] { editor.writeMemo(editor.tabBig.tab()); });
}

}  // namespace

frmWrite::frmWrite() : Form("frmWrite", "Write to...") {
  cmdFile.onClick = saveConfigurationAs;
  cmdPrint.onClick = printReport;
  cmdSerial.onClick = [] { cmdSerial_Click(); };
  cmdNetwork.onClick = cmdSerial.onClick;  // the way is chosen on the communication tab
  chkReset.onClick = [this] { Global.ResetAfterWrite = asFlag(chkReset.ticked()); };
  cmdCompare.onClick = [] { cmdCompare_Click(); };
  cmdPutBack.onClick = [] { cmdPutBack_Click(); };
  cmdRecord.onClick = [] { verifyAndRecord(); };
  cmdCancel.onClick = [this] { hide(); };
}

void frmWrite::Form_Load() {
  centre();
  showReset();
  showVerdict();
}

void frmWrite::Form_Activate() { showReset(); }

void frmWrite::showReset() { chkReset.setTicked(resetsAfterWrite()); }

void frmWrite::showVerdict() {
  const Label& line = form<frmBigFolder>().lblVerdict;
  lblVerdict.setCaption(line.caption());
  lblVerdict.setMark(line.mark());
  cmdRecord.setEnabled(mayRecord());
}

void frmWrite::cmdSerial_Click() {
  if (preparesWrite()) writeUnit();
}

void frmWrite::cmdCompare_Click() {
  if (preparesWrite() && compareUnit()) writeUnit();
}

void frmWrite::cmdPutBack_Click() {
  if (preparesWrite()) putBackCopy();
}

}  // namespace torvane
