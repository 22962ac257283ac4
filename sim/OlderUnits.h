// SPDX-License-Identifier: MIT
// Units of the lines before Torvane and Larkspur, as far as a program hears of them that tells families
// apart.
#pragma once

#include <string>

#include "sim/Command.h"
#include "sim/Identity.h"

namespace sim {

bool isOlder(Model model);

// The reply of an older unit, address digits included and line end not: what it has after the echo, or
// "?43".
std::string olderAnswer(Model model, const Command& command);

}  // namespace sim
