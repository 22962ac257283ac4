// SPDX-License-Identifier: MIT
// What differs between two of a unit, a setup and a copy.
#include "dialogs/frmCompare.h"

#include "core/Model.h"
#include "dialogs/KeptCopies.h"
#include "dialogs/TextOutput.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"

namespace torvane {

namespace {

constexpr const char* otherLineOfSetup =
    "The unit is of the other line than this setup was made for: look at every row before you write.";
constexpr const char* otherLineOfCopy =
    "The copy is of a unit of the other line, whose registers mean something else: it can't be put back into "
    "this one.";
constexpr const char* otherKind =
    "The copy was kept as another kind of unit: only what both kinds have is put back.";
constexpr const char* twoFiles = "Choose two files: setups (.cfg), copies of units (.unit), or one of each.";

bool isOtherLine(const UnitImage& one, int otherKindOfUnit) {
  return (one.kind == kind::rkw77) != (otherKindOfUnit == kind::rkw77);
}

std::string bareName(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

}  // namespace

frmCompare::frmCompare() : Form("frmCompare", "Compare") {
  txtSearch.onChange = [this] { showRows(); };
  chkAll.onClick = [this] { showRows(); };
  chkBus.onClick = [this] { compareAgain(); };
  cmdFirst.onClick = [this] { choose(first_); };
  cmdSecond.onClick = [this] { choose(second_); };
  cmdCopy.onClick = [this] { host<WindowSystem>().copyText(text()); };
  cmdSave.onClick = [this] { saveOrSay(host<Files>().chooseFileToSave(textFilter), text()); };
  cmdPrint.onClick = [this] { choosePrinterFor(caption(), text()); };
  cmdKeep.onClick = [this] { saveCopy(unit_); };
  cmdWrite.onClick = [this] {
    writeAsked = true;
    hide();
  };
  cmdClose.onClick = [this] { hide(); };
  for (Control* control :
       {static_cast<Control*>(&chkBus), static_cast<Control*>(&cmdFirst), static_cast<Control*>(&cmdSecond)})
    control->setVisible(false);
}

void frmCompare::Form_Load() { centre(); }

// Whoever showed the window looks at how it was left.
bool frmCompare::Form_QueryUnload() {
  hide();
  return true;
}

void frmCompare::compareSetup(const UnitImage& unit, const EncodedSetup& setup, bool otherLine) {
  unit_ = unit;
  setup_ = setup;
  lstDifferences.setHeadings({"Setting", "In the unit", "In this setup", "Change"});
  comparison_ = compare(unit_, setup_);
  showSummary(otherLine ? otherLineOfSetup : "");
}

void frmCompare::compareCopy(const UnitImage& unit, const UnitImage& copy) {
  unit_ = unit;
  copy_ = copy;
  setCaption("Put back a copy");
  cmdWrite.setCaption("Put back");
  chkBus.setVisible(true);
  lstDifferences.setHeadings({"Setting", "In the unit", "In the copy", "Change"});
  compareAgain();
}

void frmCompare::compareAgain() {
  setup_ = setupOf(copy_, busAsked());
  comparison_ = compare(unit_, setup_);
  const bool otherLine = isOtherLine(unit_, copy_.kind);
  cmdWrite.setEnabled(!otherLine);
  showSummary(otherLine ? otherLineOfCopy : unit_.kind != copy_.kind ? otherKind : "");
}

void frmCompare::compareFiles() {
  setCaption("Compare files");
  for (Control* control : {&cmdFirst, &cmdSecond}) control->setVisible(true);
  for (Control* control : {&cmdWrite, &cmdKeep}) control->setVisible(false);
  compareChosen();
}

void frmCompare::choose(Chosen& file) {
  const std::string path = host<Files>().chooseFileToOpen(eitherFilter);
  if (path.empty()) return;
  EitherFile content;
  try {
    content = readEither(host<Files>().readFile(path, longestEither()));
  } catch (const RuntimeError& error) {
    content.fault = std::string("It can't be read: ") + error.what();
  }
  if (!content.fault.empty()) {
    messageBox(path + "\r" + content.fault, "", Icon::critical);
    return;
  }
  file = {std::move(content), bareName(path)};
  compareChosen();
}

void frmCompare::compareChosen() {
  const auto nameOf = [](const Chosen& file, const char* missing) {
    return file.name.empty() ? std::string(missing) : file.name;
  };
  lstDifferences.setHeadings(
      {"Setting", nameOf(first_, "First file"), nameOf(second_, "Second file"), "Change"});
  if (first_.name.empty() || second_.name.empty()) {
    lblSummary.setCaption(twoFiles);
    return;
  }
  unit_ = asUnit(first_.file);
  setup_ = asSetup(second_.file, true);
  comparison_ = compare(unit_, setup_);
  showSummary(isOtherLine(unit_, setup_.kind) ? "The two are of units of different lines." : "");
}

void frmCompare::showSummary(const std::string& remark) {
  lblSummary.setCaption(summaryOf(comparison_) + (remark.empty() ? "" : ". " + remark));
  lblSummary.setMark(comparison_.unread > 0 || !remark.empty() ? Mark::error : Mark::none);
  showRows();
}

void frmCompare::showRows() {
  rows_ = rowsWith(txtSearch.text(), rowsOf(comparison_, unit_, chkAll.ticked()));
  std::vector<std::string> items;
  std::vector<Mark> marks;
  std::string section;
  const auto add = [&](std::string item, Mark mark) {
    items.push_back(std::move(item));
    marks.push_back(mark);
  };
  for (const CompareRow& row : rows_) {
    const Mark mark = row.reason.empty() ? Mark::none : Mark::error;
    if (row.section != section) add(tableRow({row.section}), mark);
    section = row.section;
    add(row.reason.empty() ? tableRow({row.name, row.inUnit, row.inSetup, row.change})
                           : tableRow({row.name, row.reason}),
        mark);
  }
  lstDifferences.setItems(std::move(items), std::move(marks));
}

std::string frmCompare::text() const {
  std::string lines = lblSummary.caption() + "\n\n";
  for (const CompareRow& row : rows_) lines += lineOf(row) + "\n";
  return lines;
}

}  // namespace torvane
