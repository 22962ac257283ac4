// SPDX-License-Identifier: MIT
// The traffic as a person reads it.
#pragma once

#include <string>
#include <string_view>

#include "sim/Unit.h"

namespace sim {

// Printable characters as they are, others as <CR>, <LF> or two hexadecimal digits in brackets. A text past
// 200 bytes is cut, and its length given.
std::string visibleText(std::string_view bytes);

// "12.345 > *R07<CR>"
std::string trafficLine(const LogEntry& entry);

}  // namespace sim
