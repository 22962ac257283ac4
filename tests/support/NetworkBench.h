// SPDX-License-Identifier: MIT
// The bench for runs over the network: a bridge with a unit of its own behind it, at the address of a first
// start.
#pragma once

#include "network/NetworkChannel.h"
#include "sim/Bridge.h"
#include "tests/support/RunBench.h"

namespace torvane {

inline constexpr const char* bridgeHost = "192.0.2.254";
inline constexpr int bridgePort = 1000;

// What a run sends before its registers: the detection, twice.
Lines detectionTraffic(bool rkw77, const std::string& address = "");

class NetworkBench : public RunBench {
 protected:
  explicit NetworkBench(sim::UnitSetup setup = {});

  // The communication tab says serial or network.
  void chooseWay(bool serial);
  // What the unit behind the bridge has heard after the detection.
  Lines commandsAfterDetection() const;
  std::string target() { return window().lblTarget.caption(); }

  sim::Unit remote;  // another one than `unit`, which stands on COM 1
  sim::Bridge bridge{remote};
};

}  // namespace torvane
