// SPDX-License-Identifier: MIT
// A notice that closes by itself after ten seconds.
#pragma once

#include <string>

#include "platform/Form.h"

namespace torvane {

class frmTimedMessage : public Form {
 public:
  frmTimedMessage();

  Label Label1{*this, "Label1"};
  CommandButton OKButton{*this, "OKButton", "&OK"};
  Timer Timer1{*this, 10.0};

  std::string message;  // set by the caller before the form is shown

  void Form_Load() override;
  void Form_Activate() override;
};

}  // namespace torvane
