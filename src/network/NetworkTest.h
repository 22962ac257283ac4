// SPDX-License-Identifier: MIT
// The wizard's test of the bridge and of the unit behind it.
#pragma once

#include <cstdint>

#include "runs/Run.h"

namespace torvane {

class NetworkChannel;

// The verdict goes to the wizard; Global.DetectionDone is 1 when the wizard may end with it.
void NetworkTestConnect(Run& run, NetworkChannel& channel);

// Does a unit answer? 1 yes, -1 the bridge's own prompt does, -2 the line echoes; -43, -46 and -50 are the
// unit's own errors, 0 is anything else.
std::int16_t CheckForConnectedDevice(Run& run, NetworkChannel& channel);

}  // namespace torvane
