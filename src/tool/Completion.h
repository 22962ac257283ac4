// SPDX-License-Identifier: MIT
// What bash needs to complete a command line.
#pragma once

#include <string>

namespace torvane::tool {

std::string bashCompletion();

}  // namespace torvane::tool
