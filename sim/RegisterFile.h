// SPDX-License-Identifier: MIT
// A unit's registers as a text file: "07 = 04  Input type", one a line, "#" begins a remark.
#pragma once

#include <string>

#include "sim/Unit.h"

namespace sim {

std::string registerText(const Unit& unit);

// Sets what the text names. Returns an empty text, or what is wrong with the first bad line; nothing is set
// then.
std::string applyRegisterText(Unit& unit, const std::string& text);

// The same with a file. One that is not there is no error: the unit keeps what it holds.
std::string loadRegisters(Unit& unit, const std::string& file);

// Through a file beside it, so that a crash leaves the old or the new one whole. An empty text, or the error.
std::string saveRegisters(const Unit& unit, const std::string& file);

}  // namespace sim
