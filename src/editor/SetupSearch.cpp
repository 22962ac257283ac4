// SPDX-License-Identifier: MIT
// The boxes of the main window by words.
#include "editor/SetupSearch.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/IndexWords.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

constexpr std::size_t kindOfControl = 3;  // letters in front of a name: "txt", "cbo", "lst"

// The page that the control lies on; none outside of all, and for what is out of sight or out of use.
std::optional<int> tabOf(const frmBigFolder& editor, const Control& control) {
  if (!control.visible()) return {};
  const Container* at = &control.container();
  for (; at != nullptr; at = at->parent()) {
    const auto* frame = dynamic_cast<const Frame*>(at);
    if (frame != nullptr && !frame->visible()) return {};
    for (int tab = 0; tab < editor.tabBig.tabs(); ++tab) {
      if (at == &editor.tabBig.page(static_cast<std::size_t>(tab))) {
        return editor.tabBig.tabAvailable(tab) ? std::optional(tab) : std::nullopt;
      }
    }
  }
  return {};
}

// The label in front of a box bears its name: "text_Sp1" that of "txtSp1", "lblTUnit" that of "cboTUnit",
// "text_Dpoint" that of all of "optDpoint". Empty if there is none.
std::string labelBeside(const frmBigFolder& editor, const Control& control) {
  std::string name = control.name().substr(std::min(kindOfControl, control.name().size()));
  name.resize(std::min(name.find('_'), name.size()));
  for (const Control* each : editor.controls) {
    const bool named = each->name() == "text_" + name || each->name() == "lbl" + name;
    if (named && &each->container() == &control.container())
      return dynamic_cast<const CaptionedControl&>(*each).caption();
  }
  return "";
}

std::string labelOf(const frmBigFolder& editor, const Control& control) {
  const std::string beside = labelBeside(editor, control);
  const auto* captioned = dynamic_cast<const CaptionedControl*>(&control);
  if (captioned != nullptr) return (beside.empty() ? "" : beside + " ") + captioned->caption();
  return beside.empty() ? control.toolTip().substr(0, control.toolTip().find(',')) : beside;
}

std::string valueOf(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->text();
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) return list->list(list->listIndex());
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return check->ticked() ? "on" : "off";
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    return option->value() ? "chosen" : "not chosen";
  }
  return numberText(std::int32_t{dynamic_cast<const ScrollBar&>(control).value()});
}

bool isBox(const Control& control) {
  return dynamic_cast<const TextBox*>(&control) != nullptr ||
         dynamic_cast<const ListControl*>(&control) != nullptr ||
         dynamic_cast<const CheckBox*>(&control) != nullptr ||
         dynamic_cast<const OptionButton*>(&control) != nullptr ||
         dynamic_cast<const ScrollBar*>(&control) != nullptr;
}

bool hasAll(const std::string& text, std::string_view words) {
  const std::string wanted = lowerCase(words);
  for (std::size_t begin = 0; begin < wanted.size();) {
    const std::size_t end = std::min(wanted.find(' ', begin), wanted.size());
    if (text.find(wanted.substr(begin, end - begin)) == text.npos) return false;
    begin = end + 1;
  }
  return true;
}

}  // namespace

std::vector<FoundBox> searchSetup(const frmBigFolder& editor, std::string_view words) {
  std::vector<FoundBox> found;
  if (words.find_first_not_of(' ') == words.npos) return found;
  for (const Control* control : editor.controls) {
    const std::optional<int> tab = isBox(*control) ? tabOf(editor, *control) : std::nullopt;
    if (!tab) continue;
    const std::string& caption = editor.tabBig.page(static_cast<std::size_t>(*tab)).caption;
    const auto* frame = dynamic_cast<const Frame*>(&control->container());
    const std::string label = labelOf(editor, *control);
    const std::string around = frame == nullptr ? "" : frame->caption();
    std::string all;
    for (const std::string& text : {caption, around, label, control->toolTip()}) all.append(text).append(" ");
    if (!hasAll(lowerCase(all + otherWords(all)), words)) continue;
    std::string line = caption;
    line.append(": ").append(label).append(": ").append(valueOf(*control));
    found.push_back({control, *tab, std::move(line)});
  }
  return found;
}

}  // namespace torvane
