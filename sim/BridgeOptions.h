// SPDX-License-Identifier: MIT
// What a bridge does besides its work, as it is named on the command line.
#pragma once

#include <string>
#include <string_view>

#include "sim/Bridge.h"

namespace sim {

// "silent", "drop:5", "pieces:2,0.1"... False when there is no such kind or its argument is not of the form
// that bridgeHelp tells.
bool addBridgeFault(BridgeFaults& faults, std::string_view text);

// One line for each kind.
std::string bridgeHelp();

}  // namespace sim
