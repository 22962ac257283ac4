// SPDX-License-Identifier: MIT
// The as-left record of a unit.
#include "dialogs/frmRecord.h"

#include <algorithm>

#include "dialogs/TextOutput.h"
#include "knowledge/CompareRows.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/Printing.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"
#include "platform/Settings.h"

namespace torvane {

namespace {

constexpr const char* title = "As-left record";
constexpr const char* pdfFilter = "PDF Files (*.pdf)|*.pdf";
constexpr const char* jsonFilter = "JSON Files (*.json)|*.json|All Files (*.*)|*.*";

// Whoever recorded last is offered again.
const std::string& whoSetting() {
  static const std::string path = std::string(program::title) + "/Persist/RecordedBy";
  return path;
}

// A record is proof of its day: what is there already stays as it is. Empty: the user must choose again.
std::string newFile(const char* filter, const std::string& name) {
  std::string path = host<Files>().proposeFileToSave(filter, name);
  if (path.empty() || !host<Files>().fileExists(path)) return path;
  messageBox("There is a file of this name already:\r" + path +
                 "\rA record never replaces a file. Choose another name.",
             "", Icon::critical);
  return "";
}

std::string cellOf(const std::string& words) { return words.empty() ? "-" : words; }

}  // namespace

frmRecord::frmRecord() : Form("frmRecord", "Verify and record") {
  cmdPrint.onClick = [this] { choosePrinterFor(title, textOf(signedRecord())); };
  cmdPdf.onClick = [this] { savePdf(); };
  cmdText.onClick = [this] { saveAs(textFilter, "txt", textOf); };
  cmdJson.onClick = [this] { saveAs(jsonFilter, "json", jsonOf); };
  cmdClose.onClick = [this] { hide(); };
}

void frmRecord::Form_Load() {
  centre();
  txtWho.setText(host<Settings>().setting(whoSetting()));
}

void frmRecord::take(const AsLeft& record) {
  record_ = record;
  lblVerdict.setCaption(summaryOf(record_));
  lblVerdict.setMark(record_.passed ? Mark::none : Mark::error);
  showRows();
}

void frmRecord::showRows() {
  std::vector<SettingLeft> settings = settingsOf(record_);
  std::ranges::stable_sort(settings, {}, [](const auto& each) { return tabOrder(each.section); });
  std::vector<std::string> items;
  std::string section;
  for (const SettingLeft& each : settings) {
    if (each.section != section) items.push_back(tableRow({each.section}));
    section = each.section;
    items.push_back(tableRow({each.name, cellOf(each.found), cellOf(each.left),
                              each.found == each.left ? "as before" : "changed"}));
  }
  items.emplace_back("Registers");
  std::vector<Mark> marks(items.size(), Mark::none);
  for (const RegisterLeft& each : record_.registers) {
    items.push_back(tableRow({each.reg + " " + each.name, cellOf(each.before), cellOf(each.after),
                              each.verdict + (each.reason.empty() ? "" : ": " + each.reason)}));
    marks.push_back(each.verdict == "failed" ? Mark::error : Mark::none);
  }
  lstRecord.setItems(std::move(items), std::move(marks));
}

AsLeft frmRecord::signedRecord() {
  record_.who = txtWho.text();
  if (host<Settings>().setting(whoSetting()) != record_.who)
    host<Settings>().saveSetting(whoSetting(), record_.who);
  return record_;
}

void frmRecord::saveAs(const char* filter, const char* ending, std::string (*content)(const AsLeft&)) {
  const AsLeft record = signedRecord();
  saveOrSay(newFile(filter, proposedFileName(record, ending)), content(record));
}

void frmRecord::savePdf() {
  const AsLeft record = signedRecord();
  const std::string path = newFile(pdfFilter, proposedFileName(record, "pdf"));
  if (path.empty()) return;
  try {
    printLines(*host<Printing>().makePdf(path), title, textOf(record));
  } catch (const RuntimeError& error) {
    messageBox(
        "The PDF could not be saved to\r" + path + "\r" + error.what() + "\rChoose another folder or file.",
        "", Icon::critical);
  }
}

}  // namespace torvane
