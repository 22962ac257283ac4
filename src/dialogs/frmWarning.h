// SPDX-License-Identifier: MIT
// The warning that an entry has been repaired, with the switch that keeps further ones away.
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmWarning : public Form {
 public:
  frmWarning();

  Label lblWarning{*this, "lblWarning"};
  Label lblReason{*this, "lblReason"};  // where only the form of an entry has changed
  CheckBox chkWarning{*this, "chkWarning", "&Enabled Warning During Data Entry"};
  CommandButton cmdOk{*this, "cmdOk", "&OK", "Discard change on current tab"};

  void Form_Load() override;  // shows Global.WarningText
};

}  // namespace torvane
