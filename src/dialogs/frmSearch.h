// SPDX-License-Identifier: MIT
// Search: words in, the boxes of the main window out, with their tab and what stands in them.
#pragma once

#include <optional>
#include <vector>

#include "platform/Form.h"

namespace torvane {

class frmSearch : public Form {
 public:
  frmSearch();

  Label lblSearch{*this, "lblSearch", "&Words"};
  TextBox txtSearch{*this, "txtSearch", "Words of a setting, as \"dead band\""};
  ListBox lstFound{*this, "lstFound", {}, "The settings found, with their tab and what stands in them"};
  CommandButton cmdGo{*this, "cmdGo", "&Go there", "Shows the tab and gives the keyboard to the box"};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};

  void Form_Load() override;

  struct Place {
    const Control* control;
    int tab;
  };
  std::optional<Place> chosen;  // where the user wants to go

 private:
  void search();
  void cmdGo_Click();

  std::vector<Place> found_;
};

}  // namespace torvane
