// SPDX-License-Identifier: MIT
// The splash that stands while the program sets itself up; the main window fills its texts.
#pragma once

#include "platform/Form.h"

namespace torvane {

class frmSplash : public Form {
 public:
  frmSplash();

  Picture Picture1{*this, "Picture1", "app"};
  Picture Picture2{*this, "Picture2", "imgMicro"};
  Picture Image1{*this, "Image1", "imgComputer"};
  Label lblCompany{*this, "lblCompany"};
  Label lblProductName{*this, "lblProductName"};
  Label lblVersion{*this, "lblVersion"};
  Label lblCopyright{*this, "lblCopyright"};
  Label lblWarning{*this, "lblWarning"};

  void Form_Load() override;
  void Form_KeyPress() override;
};

}  // namespace torvane
