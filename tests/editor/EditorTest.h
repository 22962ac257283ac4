// SPDX-License-Identifier: MIT
// The main window after a first start, and ways to look at all of it at once.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "tests/support/Bench.h"

namespace torvane {

class EditorTest : public Bench {
 protected:
  frmBigFolder& editor = firstStart();

  void showTab(int tab) { editor.tabBig.setTab(tab); }
  // As identification or the hardware dialog leave it: one of the five kinds of unit, with or without an
  // analog output.
  void chooseUnit(int kind, bool analogOutput);
  // The user presses Hardware and leaves the dialog by Cancel: the form is fitted to the model as it stands.
  void fitForm();

 private:
  frmBigFolder& firstStart() {
    host.settings.clear();
    return start();
  }
};

// The control with this name; a member of an array carries its index, as "optInType_0".
Control& named(const Form& form, std::string_view name);
std::vector<std::string> words(std::string_view text);

// Everything that a user could notice of a control, by its name; tabs under "tab 7".
using Looks = std::map<std::string, std::string>;
Looks looksOf(const frmBigFolder& editor);
// Enabled and visible alone.
Looks useOf(const frmBigFolder& editor);

// How many buttons are set in the fullest of the form's option groups.
int mostOptionsSet(const Form& form);

// What an action does to the use of controls; whatever isn't named must stay as it was.
struct Rule {
  const char* name;
  std::function<void(frmBigFolder&)> before;
  std::function<void(frmBigFolder&)> action;
  const char* enabled = "";
  const char* disabled = "";
  const char* shown = "";
  const char* hidden = "";
  std::vector<int> tabsInUse = {};
  std::vector<int> tabsOutOfUse = {};
};
void expectRule(frmBigFolder& editor, const Rule& rule);

}  // namespace torvane
