// SPDX-License-Identifier: MIT
// Faults as they are named on the command line.
#pragma once

#include <string>
#include <string_view>

#include "sim/Faults.h"

namespace sim {

// "silent", "silent:3", "refuse:?46,W07,1"... False when there is no such fault or its argument is not of the
// form that faultHelp tells.
bool addFault(Faults& faults, std::string_view text);

// One line for each kind.
std::string faultHelp();

}  // namespace sim
