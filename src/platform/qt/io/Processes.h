// SPDX-License-Identifier: MIT
// The processes of this machine, by their numbers.
#pragma once

#include <cstdint>
#include <string>

namespace torvane {

bool isAlive(std::int64_t process);

// What the program calls itself; "another program" where the system does not say.
std::string programOf(std::int64_t process);

}  // namespace torvane
