// SPDX-License-Identifier: MIT
// The TCP ports of the bridge between Ethernet and a unit's serial line.
#pragma once

namespace torvane {

namespace bridgePort {
inline constexpr int initial = 1000;
inline constexpr int terminalServer = 2000;  // the typical one of a bridge that is in use
}  // namespace bridgePort

}  // namespace torvane
