// SPDX-License-Identifier: MIT
// The bench that tests stand at: a machine in virtual time, a simulated unit on COM 1, the program, and a
// user who closes every warning of an entry.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/frmRead.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "protocol/frmSerial.h"
#include "sim/Unit.h"
#include "tests/support/VirtualHost.h"

namespace torvane {

class Bench : public ::testing::Test {
 protected:
  explicit Bench(sim::UnitSetup setup = {});
  ~Bench() override;

  // Starts the program with the unit's line settings stored, waits out the splash, and returns the main
  // window.
  frmBigFolder& start();
  // Presses Write, the serial button, and closes the chooser after the run. The model has been chosen.
  void write();
  // Presses Open and the serial button. The model has been chosen.
  void read();

  // A loaded status window on COM 1 for tests of the channel and the probe alone.
  frmSerial& channelWindow();

  sim::Unit unit;
  VirtualHost host;
};

// Forgets what the modules share, as a new process would.
void resetSharedState();

}  // namespace torvane
