// SPDX-License-Identifier: MIT
// The write run, in virtual time against a simulated unit.
#include "tests/support/Bench.h"

namespace {

using WriteRun = Bench;

TEST_F(WriteRun, PutsTheSetupIntoTheUnit) {
  auto& editor = start();
  editor.txtSp1.setText("123.4");
  write();
  EXPECT_EQ(unit.registerHex("01"), "2004D2");
  EXPECT_TRUE(host.scriptDone());
}

}  // namespace
