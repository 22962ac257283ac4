// SPDX-License-Identifier: MIT
// The history of the last run once more.
#include "dialogs/frmRunDetails.h"

#include <optional>

#include "dialogs/TextOutput.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"

namespace torvane {

namespace {

const RunRecord& record() { return form<frmBigFolder>().lastRun; }

}  // namespace

frmRunDetails::frmRunDetails() : Form("frmRunDetails", "Run Details") {
  cmdCopy.onClick = [] { host<WindowSystem>().copyText(textOf(record())); };
  cmdSave.onClick = [] { cmdSave_Click(); };
  cmdPrint.onClick = [] { choosePrinterFor("Run Details", textOf(record())); };
  cmdClose.onClick = [this] { unload(); };
}

void frmRunDetails::Form_Load() {
  centre();
  lblVerdict.setCaption(record().verdict);
  lblVerdict.setMark(record().outcome.passed() ? Mark::none : Mark::error);
  std::optional<int> failure;
  for (const HistoryLine& line : record().history) {
    lstHistory.addItem(line.text);
    if (!line.failed) continue;
    lstHistory.setItemMark(lstHistory.listCount() - 1, Mark::error);
    if (!failure) failure = lstHistory.listCount() - 1;
  }
  if (lstHistory.listCount() > 0) lstHistory.setListIndex(failure.value_or(0));
}

void frmRunDetails::cmdSave_Click() {
  const std::string path = host<Files>().chooseFileToSave(textFilter);
  if (path.empty()) return;
  try {
    host<Files>().replaceFile(path, textOf(record()));
  } catch (const RuntimeError& error) {
    messageBox("The history could not be saved to\r" + path + "\r" + error.what() +
                   "\rChoose another folder or file.",
               "", Icon::critical);
  }
}

}  // namespace torvane
