// SPDX-License-Identifier: MIT
// What differs between a unit and a setup.
#include "dialogs/frmCompare.h"

#include "dialogs/Report.h"
#include "knowledge/UnitFile.h"
#include "platform/Host.h"

namespace {

constexpr const char* textFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

// A file that can't be written leaves the older one whole, and the user with another try.
void saveOrSay(const std::string& path, const std::string& content) {
  if (path.empty()) return;
  try {
    host().replaceFile(path, content);
  } catch (const RuntimeError& error) {
    messageBox(
        "The file could not be saved to\r" + path + "\r" + error.what() + "\rChoose another folder or file.",
        "", Icon::critical);
  }
}

}  // namespace

frmCompare::frmCompare() : Form("frmCompare", "Compare") {
  txtSearch.onChange = [this] { showRows(); };
  chkAll.onClick = [this] { showRows(); };
  chkBus.onClick = [this] { compareAgain(); };
  cmdCopy.onClick = [this] { host().copyText(text()); };
  cmdSave.onClick = [this] { saveText(); };
  cmdPrint.onClick = [this] { printRows(); };
  cmdKeep.onClick = [this] { keepCopy(); };
  cmdWrite.onClick = [this] {
    writeAsked = true;
    hide();
  };
  cmdClose.onClick = [this] { hide(); };
  chkBus.setVisible(false);
}

void frmCompare::Form_Load() { centre(); }

// Whoever showed the window looks at how it was left.
bool frmCompare::Form_QueryUnload() {
  hide();
  return true;
}

void frmCompare::compareSetup(const UnitImage& unit, const EncodedSetup& setup, bool mayWrite) {
  unit_ = unit;
  setup_ = setup;
  cmdWrite.setVisible(mayWrite);
  compareAgain();
}

void frmCompare::compareCopy(const UnitImage& unit, const UnitImage& copy) {
  unit_ = unit;
  copy_ = copy;
  setCaption("Put back a copy");
  cmdWrite.setCaption("Put back");
  chkBus.setVisible(true);
  compareAgain();
}

void frmCompare::compareAgain() {
  if (chkBus.visible()) setup_ = setupOf(copy_, busAsked());
  comparison_ = compare(unit_, setup_);
  const bool otherKind = unit_.kind != setup_.kind;
  lblSummary.setCaption(
      summaryOf(comparison_) +
      (otherKind ? ". The copy is of another kind of unit than the one that answers." : ""));
  lblSummary.setMark(comparison_.unread > 0 || otherKind ? Mark::error : Mark::none);
  showRows();
}

void frmCompare::showRows() {
  rows_ = rowsWith(txtSearch.text(), rowsOf(comparison_, unit_, chkAll.value() != 0));
  lstDifferences.clear();
  for (const CompareRow& row : rows_) {
    lstDifferences.addItem(row.text);
    if (row.fault) lstDifferences.setItemMark(lstDifferences.listCount() - 1, Mark::error);
  }
  if (!rows_.empty()) lstDifferences.setListIndex(0);
}

std::string frmCompare::text() const {
  std::string lines = lblSummary.caption() + "\n\n";
  for (const CompareRow& row : rows_) lines += row.text + "\n";
  return lines;
}

void frmCompare::saveText() const { saveOrSay(host().chooseFileToSave(textFilter), text()); }

void frmCompare::keepCopy() const {
  saveOrSay(host().proposeFileToSave(unitFilter, proposedFileName(unit_)), unitFileText(unit_));
}

// A cancel in the printer chooser prints nothing.
void frmCompare::printRows() const {
  attempt([this] {
    const auto printer = host().choosePrinter(caption());
    printer->setFont("Courier", 12);
    PrintHeader(*printer, caption());
    PrintText(*printer, lblSummary.caption() + "\n");
    PrintText(*printer, "\n");
    for (const CompareRow& row : rows_) PrintText(*printer, row.text + "\n");
    PrintPageFooter(*printer);
    printer->endDocument();
  });
}
