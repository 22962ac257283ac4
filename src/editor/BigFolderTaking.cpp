// SPDX-License-Identifier: MIT
// Settings that are not typed by a user in front of the window, but come through the same rules.
#include <algorithm>
#include <stdexcept>

#include "core/NumberText.h"
#include "editor/frmBigFolder.h"

namespace torvane {

// A dead band has two boxes; the one in use is that of the menu.
const frmBigFolder::Field& frmBigFolder::fieldOf(int record) const {
  const auto found = std::ranges::find_if(fields_, [&](const Field& field) {
    const bool isBoth = field.loadTab != notShown && field.storeTab != notStored;
    return field.record == record && isBoth && isInUse(field);
  });
  if (found == fields_.end()) throw std::logic_error("record " + numberText(record) + " has no control");
  return *found;
}

// The protection is shown on one tab and committed with the next one.
void frmBigFolder::commit(const Field& field) {
  writeMemo(static_cast<std::int16_t>(field.loadTab));
  writeMemo(static_cast<std::int16_t>(field.storeTab));
}

void frmBigFolder::takeText(int record, std::string_view text) {
  const Field& field = fieldOf(record);
  tabBig.setTab(field.loadTab);
  TextBox& box = *std::get<TextBox*>(field.control);
  box.setText(text);
  if (box.onValidate) box.onValidate();
  commit(field);
}

void frmBigFolder::takeChoice(int record, int choice) {
  const Field& field = fieldOf(record);
  tabBig.setTab(field.loadTab);
  if (auto* const* check = std::get_if<CheckBox*>(&field.control)) {
    (*check)->setValue(choice);
  } else if (auto* const* option = std::get_if<OptionButton*>(&field.control)) {
    (*option)->setValue(choice != 0);
  } else if (auto* const* list = std::get_if<ListControl*>(&field.control)) {
    if (choice < (*list)->listCount()) (*list)->setListIndex(choice);
  } else {
    ScrollBar& bar = *std::get<ScrollBar*>(field.control);
    bar.setValue(std::clamp(choice, bar.min(), bar.max()));
  }
  commit(field);
}

}  // namespace torvane
