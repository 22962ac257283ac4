// SPDX-License-Identifier: MIT
// The history of the last run once more: to be read, copied, saved and printed.
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmRunDetails : public Form {
 public:
  frmRunDetails();

  Label lblVerdict{*this, "lblVerdict"};
  ListBox lstHistory{*this, "lstHistory", {}, "What the last run did, a line for each step"};
  CommandButton cmdCopy{*this, "cmdCopy", "&Copy", "Puts the history on the clipboard"};
  CommandButton cmdSave{*this, "cmdSave", "&Save as text", "Saves the history as a text file"};
  CommandButton cmdPrint{*this, "cmdPrint", "&Print", "Prints the history"};
  CommandButton cmdClose{*this, "cmdClose", "C&lose"};

  void Form_Load() override;

 private:
  static void cmdSave_Click();
};

}  // namespace torvane
