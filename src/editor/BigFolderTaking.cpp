// SPDX-License-Identifier: MIT
// Settings that are not typed by a user in front of the window, but come through the same rules.
#include <algorithm>
#include <stdexcept>

#include "core/NumberText.h"
#include "editor/SetupEditor.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

// What is chosen, ticked, or the position of a bar; a list keeps its choice where it has no such item.
struct Chooser {
  int choice;

  void operator()(const TextBox* /*text*/) const { throw std::logic_error("a text is no choice"); }
  void operator()(CheckBox* check) const { check->setValue(choice); }
  void operator()(OptionButton* option) const { option->setValue(choice != 0); }
  void operator()(ListControl* list) const {
    if (choice < list->listCount()) list->setListIndex(choice);
  }
  void operator()(ScrollBar* bar) const { bar->setValue(std::clamp(choice, bar->min(), bar->max())); }
};

}  // namespace

EntryControl controlOfRecord(int record) {
  const auto boxes = setupBoxes();
  const auto found = std::ranges::find(boxes, record, &SetupBox::record);
  if (found == boxes.end()) return EntryControl::text;
  if (std::holds_alternative<TextBox BigFolderControls::*>(found->control)) return EntryControl::text;
  if (std::holds_alternative<CheckBox BigFolderControls::*>(found->control)) return EntryControl::tick;
  if (std::holds_alternative<ScrollBar BigFolderControls::*>(found->control)) return EntryControl::bar;
  return EntryControl::choice;
}

// A dead band has two boxes; the one in use is that of the menu.
const SetupBox& frmBigFolder::boxOfRecord(int record) {
  const auto boxes = setupBoxes();
  const auto found =
      std::ranges::find_if(boxes, [&](const SetupBox& box) { return box.record == record && isInUse(box); });
  if (found == boxes.end()) throw std::logic_error("record " + numberText(record) + " has no control");
  return *found;
}

// The protection is shown on one tab and committed with the next one.
void frmBigFolder::commit(const SetupBox& box) {
  writeMemo(static_cast<std::int16_t>(box.tabs.shown));
  writeMemo(static_cast<std::int16_t>(box.tabs.committed));
}

void frmBigFolder::takeText(int record, std::string_view text) {
  const SetupBox& box = boxOfRecord(record);
  tabBig.setTab(box.tabs.shown);
  TextBox& control = *std::get<TextBox*>(controlOf(*this, box));
  control.setText(text);
  if (control.onValidate) control.onValidate();
  commit(box);
}

void frmBigFolder::takeChoice(int record, int choice) {
  const SetupBox& box = boxOfRecord(record);
  tabBig.setTab(box.tabs.shown);
  std::visit(Chooser{choice}, controlOf(*this, box));
  commit(box);
}

}  // namespace torvane
