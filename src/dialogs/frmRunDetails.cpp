// SPDX-License-Identifier: MIT
// The history of the last run once more.
#include "dialogs/frmRunDetails.h"

#include <algorithm>

#include "dialogs/Report.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"

namespace {

constexpr const char* textFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
constexpr std::size_t longestWord = 50;  // that a line of paper holds
constexpr std::size_t longestLine = 400;

const RunRecord& record() { return form<frmBigFolder>().lastRun; }

// A reply may be one word of any length, which would run off the paper.
std::string fitForPaper(std::string_view line) {
  std::string text;
  std::size_t wordLength = 0;
  for (const char character : line.substr(0, longestLine)) {
    wordLength = character == ' ' ? 0 : wordLength + 1;
    if (wordLength > longestWord) {
      text += ' ';
      wordLength = 1;
    }
    text += character;
  }
  return line.size() > longestLine ? text + "..." : text;
}

// A cancel in the printer chooser prints nothing.
void printHistory() {
  attempt([] {
    const auto printer = host().choosePrinter("Run Details");
    printer->setFont("Courier", 12);
    PrintHeader(*printer, "Run Details");
    PrintText(*printer, fitForPaper(record().verdict) + "\n");
    PrintText(*printer, "\n");
    for (const HistoryLine& line : record().history) PrintText(*printer, fitForPaper(line.text) + "\n");
    PrintPageFooter(*printer);
    printer->endDocument();
  });
}

}  // namespace

frmRunDetails::frmRunDetails() : Form("frmRunDetails", "Run Details") {
  cmdCopy.onClick = [] { host().copyText(textOf(record())); };
  cmdSave.onClick = [] { cmdSave_Click(); };
  cmdPrint.onClick = printHistory;
  cmdClose.onClick = [this] { unload(); };
}

void frmRunDetails::Form_Load() {
  centre();
  lblVerdict.setCaption(record().verdict);
  lblVerdict.setMark(record().outcome.passed() ? Mark::none : Mark::error);
  int failure = -1;
  for (const HistoryLine& line : record().history) {
    lstHistory.addItem(line.text);
    if (!line.failed) continue;
    lstHistory.setItemMark(lstHistory.listCount() - 1, Mark::error);
    if (failure < 0) failure = lstHistory.listCount() - 1;
  }
  if (lstHistory.listCount() > 0) lstHistory.setListIndex(std::max(failure, 0));
}

void frmRunDetails::cmdSave_Click() {
  const std::string path = host().chooseFileToSave(textFilter);
  if (path.empty()) return;
  try {
    host().replaceFile(path, textOf(record()));
  } catch (const RuntimeError& error) {
    messageBox("The history could not be saved to\r" + path + "\r" + error.what() +
                   "\rChoose another folder or file.",
               "", Icon::critical);
  }
}
