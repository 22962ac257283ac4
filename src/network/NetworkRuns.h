// SPDX-License-Identifier: MIT
// The runs through the bridge.
#pragma once

#include <cstdint>

#include "runs/Run.h"

namespace torvane {

class DeviceDetection;
class NetworkChannel;

inline constexpr double runConnectLimit = 2.0;  // seconds that a run waits for the bridge

// What came of a whole job.
namespace job {
enum : std::int16_t {
  tookPlace = 0,  // the run did, or its second look at the unit found it gone
  noBridge = -1,
  noUnit = -2,  // none that can be configured
};
}

// Connects to the bridge, looks twice at the unit behind it, and does the whole job: an empty one is the
// write or the read that the run's direction tells.
std::int16_t NetworkFullConnect(Run& run, NetworkChannel& channel, DeviceDetection& detection,
                                const UnitJob& job = {});

void NetworkWriteToDevice(Run& run, NetworkChannel& channel);
void NetworkReadFromDevice(Run& run, NetworkChannel& channel);  // nothing unless a read is due

}  // namespace torvane
