// SPDX-License-Identifier: MIT
// Finding out what a unit is, from the end of one reply and the length of another.
#pragma once

#include <cstdint>

#include "runs/Run.h"

namespace torvane {

class NetworkChannel;
class SerialChannel;

// The type: -1 none that can be used, 0 the Rkw77 line, 1 to 5 TMP, PRC, STR, GR2, RHT, 6 any other. The
// fields of DeviceState follow. The serial line rests after a command, the bridge before each.
void ComCheckForMeterType(Run& run, SerialChannel& channel, std::int16_t& type);
void TcpCheckForMeterType(Run& run, NetworkChannel& channel, std::int16_t& type);

}  // namespace torvane
