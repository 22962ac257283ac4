// SPDX-License-Identifier: MIT
// A shown form with every kind of control, for the tests of the controls.
#pragma once

#include <gtest/gtest.h>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "tests/platform/FakeHost.h"

namespace torvane {

struct PanelForm : Form {
  PanelForm() : Form("frmPanel", "Panel") {}

  Label lblText{*this, "lblText", "Text"};
  TextBox txtValue{*this, "txtValue", "a tip"};
  CheckBox chkEnabled{*this, "chkEnabled", "Enabled"};
  CommandButton cmdDo{*this, "cmdDo", "Do", "does it", "go"};
  ControlArray<OptionButton> optPlain{*this, "optPlain", {"A", "B"}};
  OptionButton optOther{*this, "optOther", "Other"};
  Frame fraGroup{*this, "fraGroup", "Group"};
  ControlArray<OptionButton> optFramed{fraGroup, "optFramed", {"A", "B", "C"}};
  Frame fraInner{fraGroup, "fraInner"};
  CommandButton cmdInner{fraInner, "cmdInner", "Inner"};
  ListBox lstItems{*this, "lstItems", {"red", "green", "amber"}};
  ComboBox cboItems{*this, "cboItems", {"one", "two", "three"}};
  ScrollBar HSTime{*this, "HSTime", 1, 199, 4};
  ProgressBar prgRun{*this, "prgRun", 100};
  Animation aniRun{*this, "aniRun"};
  TabStrip tabs{*this, "tabs", {"First", "Second", "Third"}};
  CommandButton cmdFirst{tabs.page(0), "cmdFirst", "on the first"};
  CommandButton cmdSecond{tabs.page(1), "cmdSecond", "on the second"};
};

class PanelTest : public ::testing::Test {
 protected:
  PanelTest() { panel.show(); }

  Handler counts(int& count) {
    return [&count] { ++count; };
  }
  template <class Statement>
  void expectRefused(Statement&& statement) {
    try {
      statement();
      ADD_FAILURE() << "not refused";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number, 380);
    }
  }

  FakeHost host;
  PanelForm& panel = form<PanelForm>();
  int runs = 0;
};

}  // namespace torvane
