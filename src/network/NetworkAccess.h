// SPDX-License-Identifier: MIT
// The first access to a unit behind the bridge, and its reset.
#pragma once

#include "runs/Run.h"

namespace torvane {

class DeviceDetection;
class NetworkChannel;

// Is there a unit of the family that was chosen? With `reset`: was the unit reset?
bool NetworkCommunicationOK(Run& run, NetworkChannel& channel, DeviceDetection& detection, bool reset);

}  // namespace torvane
