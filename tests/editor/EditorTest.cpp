// SPDX-License-Identifier: MIT
// Ways to look at the main window.
#include "tests/editor/EditorTest.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>

namespace torvane {

namespace {

std::string contentOf(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->text();
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return check->value() != 0 ? "on" : "off";
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->value() ? "on" : "off";
  if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return std::to_string(bar->value());
  if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control)) return captioned->caption();
  std::string all;
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) {
    for (const std::string& item : list->items()) all += item + "|";
    all += std::to_string(list->listIndex());
  }
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) all += combo->text();
  return all;
}

std::string useOf(const Control& control) {
  return std::string(control.enabled() ? "enabled" : "disabled") + (control.visible() ? " shown" : " hidden");
}

std::string tabUse(bool available) { return available ? "in use" : "out of use"; }

void setUse(const frmBigFolder& editor, const Rule& rule, bool asExpected) {
  for (const auto& name : words(rule.enabled)) named(editor, name).setEnabled(asExpected);
  for (const auto& name : words(rule.disabled)) named(editor, name).setEnabled(!asExpected);
  for (const auto& name : words(rule.shown)) named(editor, name).setVisible(asExpected);
  for (const auto& name : words(rule.hidden)) named(editor, name).setVisible(!asExpected);
}

void setTabUse(frmBigFolder& editor, const Rule& rule, bool asExpected) {
  for (int tab : rule.tabsInUse) editor.tabBig.setTabAvailable(tab, asExpected);
  for (int tab : rule.tabsOutOfUse) editor.tabBig.setTabAvailable(tab, !asExpected);
}

}  // namespace

void EditorTest::chooseUnit(int kind, bool analogOutput) {
  DeviceState.MenuKind = kind == kind::alarmsOnly ? 1 : kind == kind::simpleMenu ? 2 : 0;
  Memo[rec::menuKind].extra = static_cast<std::int16_t>(DeviceState.MenuKind);
  Memo[rec::monitorOnly].value = kind == kind::monitorOnly ? 1 : 0;
  DeviceState.IsRkw77 = asFlag(kind == kind::rkw77);
  DeviceState.DeviceClass = kind == kind::rkw77 ? 0 : 1;
  Hardware.Out1 = {};
  (analogOutput ? Hardware.Out1.Analog : Hardware.Out1.SSR) = True;
}

void EditorTest::fitForm() {
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  editor.cmdCnfg.userClicked();
}

Control& named(const Form& form, std::string_view name) {
  const auto found = std::ranges::find(form.controls, name, [](const Control* c) { return c->name(); });
  if (found == form.controls.end()) throw std::logic_error("no control " + std::string(name));
  return **found;
}

std::vector<std::string> words(std::string_view text) {
  std::istringstream stream{std::string(text)};
  return {std::istream_iterator<std::string>(stream), {}};
}

Looks useOf(const frmBigFolder& editor) {
  Looks use;
  for (const Control* control : editor.controls) use[control->name()] = useOf(*control);
  for (int tab = 0; tab < editor.tabBig.tabs(); ++tab) {
    use["tab " + std::to_string(tab)] = tabUse(editor.tabBig.tabAvailable(tab));
  }
  return use;
}

Looks looksOf(const frmBigFolder& editor) {
  Looks looks = useOf(editor);
  for (const Control* control : editor.controls) looks[control->name()] += " " + contentOf(*control);
  looks["tab on show"] = std::to_string(editor.tabBig.tab());
  return looks;
}

int mostOptionsSet(const Form& form) {
  std::map<const Container*, int> set;
  int most = 0;
  for (const Control* control : form.controls) {
    const auto* option = dynamic_cast<const OptionButton*>(control);
    if (option != nullptr && option->value()) most = std::max(most, ++set[&option->container()]);
  }
  return most;
}

// The named controls are put into the opposite state first, so that it must be the action that sets them.
void expectRule(frmBigFolder& editor, const Rule& rule) {
  SCOPED_TRACE(rule.name);
  rule.before(editor);
  setUse(editor, rule, true);
  setTabUse(editor, rule, true);
  const Looks expected = useOf(editor);
  setUse(editor, rule, false);
  setTabUse(editor, rule, false);
  rule.action(editor);
  const Looks use = useOf(editor);
  for (const auto& [name, state] : expected) EXPECT_EQ(use.at(name), state) << name;
}

}  // namespace torvane
