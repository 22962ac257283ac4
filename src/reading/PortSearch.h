// SPDX-License-Identifier: MIT
// The wizard's search for a unit on the computer's serial ports.
#pragma once

#include "runs/Run.h"

namespace torvane {

class SerialChannel;

// Tries the port that Memo names, and unless run.reading is set the others from 1 to 10, with the factory's
// line settings. The verdict goes to the wizard; Global.DetectionDone is 1 when a unit was found.
void SerialTestConnect(Run& run, SerialChannel& channel);

}  // namespace torvane
