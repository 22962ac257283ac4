// SPDX-License-Identifier: MIT
// The preferences. Every click takes effect at once; there is nothing to cancel.
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmPreferences : public Form {
 public:
  frmPreferences();

  Frame Frame1{*this, "Frame1", "Messages"};
  CheckBox chkWarnEn{Frame1, "chkWarnEn", "&Enabled Warning During Data Entry"};
  Frame Frame2{*this, "Frame2", "Serial Communication"};
  CheckBox chkReset{Frame2, "chkReset", "&Reset Controller After Finish Programming"};
  Frame Frame3{*this, "Frame3", "Copies Of Units"};
  CheckBox chkKeep{Frame3, "chkKeep", "&Keep A Copy Of The Unit Before Every Write"};
  CommandButton cmdOk{*this, "cmdOk", "&OK", "Discard change on current tab"};

  void Form_Load() override;
};

}  // namespace torvane
