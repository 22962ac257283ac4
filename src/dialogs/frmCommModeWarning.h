// SPDX-License-Identifier: MIT
// What a change of the unit's serial bus brings about, shown beside the main window.
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmCommModeWarning : public Form {
 public:
  frmCommModeWarning();

  TextBox txtWarning{*this, "txtWarning"};  // whatever is typed into it, it says the same
  CommandButton cmdCommWarning{*this, "cmdCommWarning", "&Close"};

  void Form_Load() override;
};

}  // namespace torvane
