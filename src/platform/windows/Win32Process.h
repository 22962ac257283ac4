// SPDX-License-Identifier: MIT
// What Windows tells of a process, by its number.
#pragma once

#include <cstdint>
#include <string>

namespace torvane {

bool win32IsAlive(std::int64_t process);

// The path of the program's file; empty where the system does not say.
std::string win32ProgramFile(std::int64_t process);

}  // namespace torvane
