// SPDX-License-Identifier: MIT
// What a control holds can be put back, in every kind of control and without a word to a handler.
#include "tests/platform/PanelTest.h"

namespace torvane {

namespace {

TEST(ControlState, OfEveryKindComesBackWithoutAHandler) {
  const auto form = std::make_shared<Form>("frm", "Form");
  Label label(*form, "label", "Label");
  CommandButton button(*form, "button", "Button");
  TextBox text(*form, "text");
  CheckBox check(*form, "check", "Check");
  OptionButton first(*form, "first", "First");
  OptionButton second(*form, "second", "Second");
  ListBox list(*form, "list", {"a", "b"});
  ComboBox combo(*form, "combo", {"a", "b", "c"});
  ScrollBar bar(*form, "bar", 0, 9, 3);
  TabStrip tabs(*form, "tabs", {"one", "two"});
  first.setValue(true);

  std::vector<ControlState> before;
  for (const Control* control : form->controls) before.push_back(control->state());
  const auto change = [&] {
    label.setCaption("Other");
    label.setBackColor(0xFF);
    label.setMark(Mark::error);
    button.setEnabled(false);
    text.setText("typed");
    text.setToolTip("tip");
    check.setValue(1);
    second.setValue(true);
    list.addItem("c");
    list.setListIndex(2);
    combo.removeItem(0);
    combo.setText("free");
    bar.setValue(7);
    tabs.setTab(1);
    tabs.setTabAvailable(0, false);
    for (Control* control : form->controls) control->setVisible(false);
  };
  change();
  int handlers = 0;
  const Handler count = [&] { ++handlers; };
  text.onChange = check.onClick = first.onClick = list.onClick = combo.onClick = bar.onChange = count;
  combo.onChange = count;
  tabs.onClick = [&](std::int16_t) { ++handlers; };
  int redraws = 0;
  for (Control* control : form->controls) control->onRedraw = [&] { ++redraws; };
  for (std::size_t at = 0; at < before.size(); ++at) form->controls[at]->putBack(before[at]);

  for (std::size_t at = 0; at < before.size(); ++at) {
    EXPECT_EQ(form->controls[at]->state(), before[at]) << form->controls[at]->name();
  }
  EXPECT_TRUE(first.value());
  EXPECT_FALSE(second.value());
  EXPECT_EQ(combo.list(0), "a");
  EXPECT_TRUE(tabs.tabAvailable(0));
  EXPECT_EQ(handlers, 0);
  EXPECT_EQ(redraws, static_cast<int>(before.size()));
}

}  // namespace

}  // namespace torvane
