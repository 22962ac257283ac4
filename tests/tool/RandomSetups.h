// SPDX-License-Identifier: MIT
// Setup files of every kind of unit, as a user could have made them.
#pragma once

#include <random>
#include <string>

namespace torvane {

// The machine of the tool, within the test's own process.
void beAtTheTool();

// Writes one; what it stands for stays in no record.
void writeRandomSetup(std::mt19937& random, const std::string& path);

}  // namespace torvane
