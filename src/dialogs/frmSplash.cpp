// SPDX-License-Identifier: MIT
// The splash that stands while the program sets itself up.
#include "dialogs/frmSplash.h"

#include "core/NumberText.h"
#include "platform/Program.h"

namespace torvane {

frmSplash::frmSplash() : Form("frmSplash", program::title) {}

void frmSplash::Form_Load() {
  centre();
  lblVersion.setCaption("Version " + numberText(std::int32_t{program::majorVersion}) + "." +
                        numberText(std::int32_t{program::minorVersion}));
}

void frmSplash::Form_KeyPress() { unload(); }

}  // namespace torvane
